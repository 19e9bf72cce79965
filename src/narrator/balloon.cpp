#include "narrator/balloon.h"

#include "narrator/balloon_text.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace narrator {

namespace {

constexpr int padding = 14;
constexpr int tailHeight = 14;
constexpr int tailWidth = 20;
constexpr int edge = 2;
constexpr int leastWidth = 120;
constexpr double corner = 16;
constexpr int dotsHeight = 8; ///< for the dots that say that the text goes on

const QColor edgeColour(0x0b, 0x4d, 0x5f);
const QColor paperColour(0xff, 0xfd, 0xf3);
const QColor inkColour(0x16, 0x24, 0x33);

} // namespace

Balloon::Balloon(const QRect& room, QWidget* parent) : QLabel(parent), room_(room)
{
    setObjectName(QStringLiteral("balloon"));
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::NoFocus);
    QFont font;
    font.setFamilies(
        {QStringLiteral("Verdana"), QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")});
    font.setPixelSize(15);
    setFont(font);
    layout_.setFont(font);
    hide();
}

bool Balloon::say(const QString& text, double read)
{
    const bool changed = text != given_;
    if (changed) {
        given_ = text;
        setText(shownText(text));
        pageEnd_ = 0;
    }
    const QString words = this->text();
    if (words.isEmpty()) {
        const bool shown = isVisibleTo(parentWidget());
        hide();
        return shown;
    }
    const auto position = static_cast<qsizetype>(read * static_cast<double>(words.size()));
    if (!changed && (position < pageEnd_ || pageEnd_ == words.size())) {
        return false;
    }
    do {
        turnPage();
    } while (position >= pageEnd_ && pageEnd_ < words.size());
    fitTo(words.mid(pageStart_, pageEnd_ - pageStart_));
    show();
    update();
    return true;
}

void Balloon::setRoom(const QRect& room, int letterPixels)
{
    room_ = room;
    QFont letters = font();
    letters.setPixelSize(letterPixels);
    setFont(letters);
    layout_.setFont(letters);
    const QString given = std::exchange(given_, {});
    say(given, static_cast<double>(pageStart_) / static_cast<double>(std::max<qsizetype>(1, text().size())));
}

QPainterPath Balloon::outline() const
{
    const QRectF box =
        QRectF(geometry()).adjusted(edge / 2.0, edge / 2.0, -edge / 2.0, -edge / 2.0 - tailHeight);
    const QPointF foot(box.center().x(), box.bottom());
    QPainterPath body;
    body.addRoundedRect(box, corner, corner);
    QPainterPath tail(foot + QPointF(-tailWidth / 2.0, -1));
    tail.lineTo(foot + QPointF(0, tailHeight));
    tail.lineTo(foot + QPointF(tailWidth / 2.0, -1));
    tail.closeSubpath();
    return body.united(tail);
}

void Balloon::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edgeColour, edge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(paperColour);
    painter.drawPath(outline().translated(-pos()));
    painter.setPen(inkColour);
    layout_.draw(&painter, QPointF(padding, padding));
    if (pageEnd_ >= text().size()) {
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(edgeColour);
    const QPointF last(width() - padding - 2, height() - tailHeight - 8);
    for (int i = 0; i < 3; ++i) {
        painter.drawEllipse(last - QPointF(8 * i, 0), 2, 2);
    }
}

void Balloon::turnPage()
{
    pageStart_ = pageEnd_;
    pageEnd_ = pageEnd(text(), pageStart_, [this](const QString& page) { return layOut(page); });
}

void Balloon::fitTo(const QString& page)
{
    layOut(page);
    const bool centred = layout_.lineCount() <= 3;
    double widest = 0;
    for (int i = 0; i < layout_.lineCount(); ++i) {
        widest = std::max(widest, layout_.lineAt(i).naturalTextWidth());
    }
    const int width =
        std::clamp(static_cast<int>(std::ceil(widest)) + 2 * padding, leastWidth, room_.width());
    for (int i = 0; i < layout_.lineCount(); ++i) {
        QTextLine line = layout_.lineAt(i);
        const double indent = centred ? (width - 2 * padding - line.naturalTextWidth()) / 2 : 0;
        line.setPosition({std::max(0.0, indent), line.y()});
    }
    const int height =
        static_cast<int>(std::ceil(layout_.boundingRect().height())) + 2 * padding + tailHeight;
    setGeometry(room_.center().x() - width / 2, room_.bottom() + 1 - height, width, height);
}

qsizetype Balloon::layOut(const QString& page)
{
    QString shown = page;
    while (shown.endsWith(u' ')) {
        shown.chop(1);
    }
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.setText(shown);
    layout_.beginLayout();
    const double bottom = room_.height() - 2 * padding - tailHeight - dotsHeight;
    double y = 0;
    qsizetype fitting = 0;
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(room_.width() - 2 * padding);
        if (fitting > 0 && y + line.height() > bottom) {
            break;
        }
        line.setPosition({0, y});
        y += line.height();
        fitting = line.textStart() + line.textLength();
    }
    layout_.endLayout();
    return fitting == shown.size() ? page.size() : fitting;
}

} // namespace narrator
