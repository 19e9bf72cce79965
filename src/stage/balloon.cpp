#include "stage/balloon.h"

#include "stage/balloon_access.h"
#include "stage/balloon_text.h"
#include "stage/colours.h"
#include "toolkit/text.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace stage {

namespace {

constexpr double points = 11.25;
constexpr int padding = 14;
constexpr int tailHeight = 14;
constexpr int tailWidth = 20;
constexpr int edge = 2;
constexpr int leastWidth = 120;
constexpr double corner = 16;
constexpr qsizetype longestPage = 2'000; ///< characters; no room takes more

} // namespace

Balloon::Balloon(const QRect& room, QWidget* parent) : QLabel(parent), room_(room)
{
    describeAsText(*this); // before anything of it is told
    setObjectName("balloon");
    setTextFormat(Qt::PlainText);
    setFont(toolkit::verdana(points));
    layout_.setFont(font());
    setAccessibleName("Host says");
    hide();
}

bool Balloon::say(const QString& text, qsizetype said)
{
    if (text == given_ && said == said_)
        return false;
    const bool fresh = text != given_ || said < said_;
    if (fresh) {
        given_ = text;
        whole_ = shownText(text);
        top_ = 0;
        fitToPage();
    }
    said_ = said;
    const QString before = this->text();
    const QString words = shownText(text.first(std::clamp<qsizetype>(said, 0, text.size())));
    if (words != before) {
        setText(words);
        scrollTo(words.size());
        announceWords(*this, before);
        update();
    }
    const bool shown = isVisibleTo(parentWidget());
    setVisible(!words.isEmpty());
    return shown == words.isEmpty() || (shown && fresh);
}

void Balloon::setRoom(const QRect& room, int letterPixels)
{
    room_ = room;
    QFont letters = font();
    letters.setPixelSize(letterPixels);
    setFont(letters);
    layout_.setFont(letters);
    const QString given = std::exchange(given_, {});
    say(given, said_);
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
    drawWords(painter);
}

/// Draws the laid out lines as far as they have been said.
void Balloon::drawWords(QPainter& painter) const
{
    const auto end = static_cast<int>(text().size() - top_);
    for (int i = 0; i < layout_.lineCount(); ++i) {
        const QTextLine line = layout_.lineAt(i);
        if (line.textStart() >= end)
            return;
        if (line.textStart() + line.textLength() > end) {
            const double from = line.cursorToX(line.textStart());
            const double to = line.cursorToX(end);
            const QRectF said(std::min(from, to), line.y(), std::abs(to - from), line.height());
            // The last letter may stand out, but not the first of what has not been said.
            const int beside = whole_[top_ + end].isSpace() ? 1 : 0;
            painter.setClipRect(said.translated(padding, padding).adjusted(-beside, 0, beside, 0));
        }
        line.draw(&painter, QPointF(padding, padding));
    }
}

void Balloon::scrollTo(qsizetype end)
{
    if (end - top_ > longestPage) {
        top_ = whole_.lastIndexOf(u' ', end - longestPage / 2) + 1; // not line by line all the way
        top_ = std::max(top_, end - longestPage);
        fitting_ = layOut();
    }
    while (end > top_ + fitting_ && layout_.lineCount() > 1) {
        top_ += layout_.lineAt(0).textLength();
        fitting_ = layOut();
    }
}

void Balloon::fitToPage()
{
    fitting_ = layOut();
    const bool centred = layout_.lineCount() <= 3;
    double widest = 0;
    for (int i = 0; i < layout_.lineCount(); ++i)
        widest = std::max(widest, layout_.lineAt(i).naturalTextWidth());
    if (fitting_ < whole_.size())
        widest = room_.width();
    const int width =
        std::clamp(static_cast<int>(std::ceil(widest)) + 2 * padding, leastWidth, room_.width());
    for (int i = 0; i < layout_.lineCount(); ++i) {
        QTextLine line = layout_.lineAt(i);
        const double indent = centred ? (width - 2 * padding - line.naturalTextWidth()) / 2 : 0;
        line.setPosition({std::max(0.0, indent), line.y()});
    }
    const int height =
        static_cast<int>(std::ceil(layout_.boundingRect().height())) + 2 * padding + tailHeight;
    setGeometry(room_.x() + (room_.width() - width) / 2, room_.bottom() + 1 - height, width, height);
}

qsizetype Balloon::layOut()
{
    const QString page = whole_.mid(top_, longestPage);
    const qsizetype fitting = breakLines(page);
    if (fitting < page.size())
        breakLines(page.first(fitting));
    return fitting;
}

qsizetype Balloon::breakLines(const QString& page)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.setText(page);
    layout_.beginLayout();
    const double bottom = room_.height() - 2 * padding - tailHeight;
    double y = 0;
    qsizetype fitting = 0;
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(room_.width() - 2 * padding);
        if (fitting > 0 && y + line.height() > bottom)
            break;
        line.setPosition({0, y});
        y += line.height();
        fitting = line.textStart() + line.textLength();
    }
    layout_.endLayout();
    return fitting;
}

} // namespace stage
