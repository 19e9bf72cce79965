#include "toolkit/controls.h"

#include <QMouseEvent>
#include <QPainter>

namespace toolkit {

namespace {

/// What is written on a ground of this colour while it cannot be used.
QColor disabledText(const QColor& ground)
{
    return ground.darker(150);
}

} // namespace

Label::Label(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMouseTracking(true);
}

void Label::setTextColour(const QColor& colour)
{
    QPalette changed = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        changed.setColor(group, QPalette::WindowText, colour);
    setPalette(changed);
}

void Label::setBackground(const QColor& colour)
{
    QPalette changed = palette();
    changed.setColor(QPalette::Window, colour);
    changed.setColor(QPalette::Disabled, QPalette::WindowText, disabledText(colour));
    setPalette(changed);
    fillShape();
}

void Label::setOpaque(bool opaque)
{
    opaque_ = opaque;
    fillShape();
    update();
}

void Label::setBackgroundShape(toolkit::Shape* shape)
{
    backgroundShape_ = shape;
    fillShape();
}

void Label::fillShape()
{
    if (backgroundShape_)
        backgroundShape_->setFill(opaque_ ? std::optional(palette().color(QPalette::Window)) : std::nullopt);
}

void Label::setText(const QString& text)
{
    QLabel::setText(text);
    sizeToText();
}

void Label::setSizedToText()
{
    sizedToText_ = true;
    sizeToText();
}

void Label::sizeToText()
{
    if (!sizedToText_)
        return;
    const QSize needed = QFontMetrics(font()).size(0, text());
    const bool centred = alignment().testFlag(Qt::AlignHCenter);
    const int left = centred ? x() + (width() - needed.width()) / 2 : x();
    setGeometry(left, y(), needed.width(), needed.height());
}

void Label::setWordsSpread(double first, double distance)
{
    firstWord_ = first;
    wordDistance_ = distance;
}

void Label::paintSpread(QPainter& painter) const
{
    const QStringList words = text().split(QChar::Space, Qt::SkipEmptyParts);
    const int distance = pixels(wordDistance_);
    for (int place = 0; place < words.size(); ++place) {
        const QRect box(pixels(firstWord_) + place * distance - distance / 2, 0, distance, height());
        painter.drawText(box, Qt::AlignHCenter | static_cast<int>(alignment() & Qt::AlignVertical_Mask),
                         words[place]);
    }
}

void Label::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (opaque_ && !backgroundShape_)
        painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    if (bordered_)
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (wordDistance_ > 0) {
        paintSpread(painter);
        return;
    }
    const int flags = static_cast<int>(alignment()) | Qt::TextWordWrap;
    QRect box = rect();
    if (bordered_ || alignment().testFlag(Qt::AlignVCenter))
        box.adjust(2, 1, -2, -1);
    const FittedText shown = fitted(text(), font(), box.size(), flags);
    painter.setFont(shown.font);
    painter.drawText(box, shown.flags | Qt::TextDontClip, shown.text);
}

void Label::mousePressEvent(QMouseEvent* event)
{
    pressed_ = onClick && event->button() == Qt::LeftButton;
    event->setAccepted(pressed_);
}

// The second press of a double click may have been meant for a button that the first one took away.
void Label::mouseDoubleClickEvent(QMouseEvent*)
{
    pressed_ = false;
}

void Label::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked =
        pressed_ && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    pressed_ = false;
    if (clicked)
        onClick();
}

void Label::mouseMoveEvent(QMouseEvent*)
{
    if (onMouseMove)
        onMouseMove();
}

Button::Button(QWidget* parent) : QPushButton(parent)
{
    setAutoDefault(false);
}

void Button::setBackground(const QColor& colour)
{
    QPalette changed = palette();
    changed.setColor(QPalette::Button, colour);
    changed.setColor(QPalette::ButtonText, Qt::black);
    changed.setColor(QPalette::Disabled, QPalette::ButtonText, disabledText(colour));
    setPalette(changed);
}

// Its access key presses it at once, even where a menu of the window has the same letter.
bool Button::event(QEvent* event)
{
    if (event->type() != QEvent::Shortcut)
        return QPushButton::event(event);
    press();
    return true;
}

void Button::press()
{
    setFocus(Qt::ShortcutFocusReason);
    click();
}

void Button::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintFace(painter);

    // A bar too narrow for two letters is read from top to bottom.
    const bool upright = width() < 2 * fontMetrics().maxWidth() && height() > 4 * width();
    QString shown = text();
    if (upright)
        shown = shown.simplified().replace(QChar::Space, QChar::LineFeed);
    const int flags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
    const FittedText fit = fitted(shown, font(), rect().adjusted(2, 1, -2, -1).size(), flags);
    painter.setFont(fit.font);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.drawText(rect().translated(0, isDown() ? 1 : 0), fit.flags | Qt::TextDontClip, fit.text);
}

// Painted here because the desktop's styles mix the colour with their own.
void Button::paintFace(QPainter& painter) const
{
    constexpr double radius = 3;
    const QColor face =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Button);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    // What is written on a dark face is what stands out from it.
    const QColor written =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    const bool dark = face.lightness() < written.lightness();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(dark ? written : face.darker(170));
    painter.setBrush(isDown() ? face.darker(112) : underMouse() && isEnabled() ? face.lighter(106) : face);
    painter.drawRoundedRect(area, radius, radius);
    const QLineF topEdge(area.left() + radius, area.top() + 1, area.right() - radius, area.top() + 1);
    painter.setPen(isDown() ? face.darker(140) : face.lighter(125));
    painter.drawLine(topEdge);
    if (hasFocus()) {
        painter.setPen(QPen(dark ? written : face.darker(220), 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area.adjusted(2, 2, -2, -2));
    }
}

Picture::Picture(const QString& resource, QWidget* parent) : QWidget(parent), pixmap_(resource) {}

void Picture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QSizeF shown = pixmap_.deviceIndependentSize();
    shown.scale(size(), Qt::KeepAspectRatio);
    QRectF area(QPointF(), shown);
    area.moveCenter(QRectF(rect()).center());
    painter.drawPixmap(area, pixmap_, QRectF(pixmap_.rect()));
}

namespace {

QPolygonF hexagon(const QRectF& area)
{
    const double half = area.height() / 2;
    const double left = area.left() + half;
    const double right = area.right() - half;
    return QList{
        QPointF(left, area.top()),     QPointF(right, area.top()),   QPointF(area.right(), area.center().y()),
        QPointF(right, area.bottom()), QPointF(left, area.bottom()), QPointF(area.left(), area.center().y())};
}

} // namespace

Shape::Shape(const Style& style, QWidget* parent) : QWidget(parent), style_(style)
{
    setAttribute(Qt::WA_TransparentForMouseEvents, !style.cover);
}

void Shape::setFill(std::optional<QColor> fill)
{
    style_.fill = fill;
    update();
}

void Shape::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double inset = style_.outline ? style_.outlineWidth / 2.0 : 0;
    const QRectF area = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    QPen pen(style_.outline.value_or(Qt::transparent), style_.outlineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(style_.outline ? pen : QPen(Qt::NoPen));
    if (style_.fill)
        painter.setBrush(*style_.fill);
    painter.setRenderHint(QPainter::Antialiasing, style_.kind != Kind::Rectangle);
    if (style_.kind == Kind::Rectangle)
        painter.drawRect(area);
    else if (style_.kind == Kind::Circle)
        painter.drawEllipse(area);
    else
        painter.drawPolygon(hexagon(area));
}

Line::Line(TwipPoint from, TwipPoint to, const QColor& colour, int lineWidth, QWidget* parent)
    : QWidget(parent),
      from_(pixels(from.x), pixels(from.y)),
      to_(pixels(to.x), pixels(to.y)),
      colour_(colour),
      lineWidth_(lineWidth)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(QRect(from_, to_).normalized().adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth));
}

void Line::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool slanted = from_.x() != to_.x() && from_.y() != to_.y();
    painter.setRenderHint(QPainter::Antialiasing, slanted);
    painter.setPen(QPen(colour_, lineWidth_, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from_ - pos(), to_ - pos());
}

} // namespace toolkit
