#include "toolkit/controls.h"

#include "toolkit/contrast.h"
#include "toolkit/shapes.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>

namespace toolkit {

namespace {

/// A control of this colour looks like this while it cannot be used ...
QColor disabledGround(const QColor& ground)
{
    return ground.darker(200);
}

/// ... with this written on it.
QColor disabledText(const QColor& ground)
{
    return ground.lighter(150);
}

/// The colour of a role, the same whether the window is the active one or not.
QColor colourOf(const QWidget& control, QPalette::ColorRole role)
{
    return control.palette().color(control.isEnabled() ? QPalette::Active : QPalette::Disabled, role);
}

/// The colour that a control without a ground of its own is seen on.
QColor groundBelow(const QWidget& control)
{
    const QWidget& parent = *control.parentWidget();
    QColor ground = parent.palette().color(QPalette::Window);
    for (const QObject* child : parent.children()) { // from the lowest to the highest
        if (child == &control)
            break;
        const auto* shape = dynamic_cast<const Shape*>(child);
        if (shape && shape->fill() && shape->isShownAt(control.geometry().center()))
            ground = *shape->fill();
    }
    return ground;
}

} // namespace

Label::Label(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction); // or each text would be a document
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
    changed.setColor(QPalette::Disabled, QPalette::Window, disabledGround(colour));
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
    // Or the text of a label that can have the focus would be a document.
    const Qt::FocusPolicy policy = focusPolicy();
    setFocusPolicy(Qt::NoFocus);
    QLabel::setText(text);
    setFocusPolicy(policy);
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

/// What the text is seen on.
QColor Label::ground() const
{
    return opaque_ ? palette().color(QPalette::Window) : groundBelow(*this);
}

void Label::paintSpread(QPainter& painter) const
{
    const QStringList words = text().split(QChar::Space, Qt::SkipEmptyParts);
    const int distance = pixels(wordDistance_);
    const QColor behind = ground();
    for (int place = 0; place < words.size(); ++place) {
        const QRect box(pixels(firstWord_) + place * distance - distance / 2, 0, distance, height());
        drawText(painter, box, Qt::AlignHCenter | static_cast<int>(alignment() & Qt::AlignVertical_Mask),
                 words[place], behind);
    }
}

void Label::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (opaque_ && !backgroundShape_)
        painter.fillRect(rect(), palette().color(QPalette::Window));
    const QColor colour = colourOf(*this, QPalette::WindowText);
    painter.setPen(QPen(colour, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    if (bordered_)
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
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
    drawText(painter, box, shown.flags | Qt::TextDontClip, shown.text, ground());
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
    changed.setColor(QPalette::Disabled, QPalette::Button, disabledGround(colour));
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
    painter.setPen(colourOf(*this, QPalette::ButtonText));
    const QRect box = rect().translated(0, isDown() ? 1 : 0);
    const int drawn = fit.flags | Qt::TextDontClip;
    if (isEnabled())
        drawText(painter, box, drawn, fit.text, palette().color(QPalette::Button));
    else
        painter.drawText(box, drawn, fit.text); // what the desktop greys out is to look so
}

// Painted here because the desktop's styles mix the colour with their own.
void Button::paintFace(QPainter& painter) const
{
    constexpr double radius = 3;
    const QColor face = colourOf(*this, QPalette::Button);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    // What is written on a dark face is what stands out from it.
    const QColor written = colourOf(*this, QPalette::ButtonText);
    const bool dark = face.lightness() < written.lightness();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(dark ? written : face.darker(170));
    painter.setBrush(isDown() ? face.darker(112) : underMouse() && isEnabled() ? face.lighter(106) : face);
    painter.drawRoundedRect(area, radius, radius);
    const QLineF topEdge(area.left() + radius, area.top() + 1, area.right() - radius, area.top() + 1);
    painter.setPen(isDown() ? face.darker(140) : face.lighter(125));
    painter.drawLine(topEdge);
    if (hasFocus()) {
        painter.setPen(dark ? written : face.darker(400));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area.adjusted(1.5, 1.5, -1.5, -1.5), radius, radius);
    }
}

void TextArea::paintEvent(QPaintEvent* event)
{
    const QColor ground = palette().color(QPalette::Base);
    QTextLayout::FormatRange halo{0, 0, {}};
    const QColor colour = haloOf(palette().color(QPalette::Text), ground, font().pixelSize());
    halo.format.setForeground(colour);
    QPainter painter(viewport());
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && colour != ground; block = block.next()) {
        halo.length = block.length();
        const QPointF place = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
        for (const QPoint offset : haloOffsets)
            block.layout()->draw(&painter, place + offset, {halo});
    }
    painter.end();
    QPlainTextEdit::paintEvent(event);
}

} // namespace toolkit
