#include "toolkit/shapes.h"

#include <QPainter>
#include <QPainterPath>

namespace toolkit {

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

/// A sign in a square of the side 1.
QPainterPath sign(Shape::Kind kind)
{
    QPainterPath path;
    if (kind == Shape::Kind::Tick) {
        path.moveTo(0, 0.55);
        path.lineTo(0.35, 0.9);
        path.lineTo(1, 0.1);
    } else if (kind == Shape::Kind::Cross) {
        path.moveTo(0, 0);
        path.lineTo(1, 1);
        path.moveTo(1, 0);
        path.lineTo(0, 1);
    } else {
        path.addRect(0.1, 0.5, 0.8, 0.5);
        path.moveTo(0.25, 0.5);
        path.arcTo(0.25, 0, 0.5, 0.6, 180, -180);
        path.lineTo(0.75, 0.5);
    }
    return path;
}

void paintSign(QPainter& painter, Shape::Kind kind, const QRectF& area)
{
    constexpr double edge = 0.14; // of the side: half of the broader pen
    painter.translate(area.topLeft());
    painter.scale(area.width(), area.height());
    painter.translate(edge, edge);
    painter.scale(1 - 2 * edge, 1 - 2 * edge);
    for (const auto& [colour, width] : {std::pair(Qt::black, 0.3), std::pair(Qt::white, 0.14)})
        painter.strokePath(sign(kind), QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace

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

Shape::Shape(const Style& style, QWidget* parent) : QWidget(parent), style_(style)
{
    setAttribute(Qt::WA_TransparentForMouseEvents, !style.cover);
}

void Shape::setFill(std::optional<QColor> fill)
{
    style_.fill = fill;
    update();
}

void Shape::setKind(Kind kind)
{
    style_.kind = kind;
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
    else if (style_.kind == Kind::Hexagon)
        painter.drawPolygon(hexagon(area));
    else
        paintSign(painter, style_.kind, area);
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
    // The end of a hairline would be a dot of its own on dense screens.
    painter.setPen(QPen(colour_, lineWidth_, Qt::SolidLine, lineWidth_ == 1 ? Qt::FlatCap : Qt::RoundCap));
    painter.drawLine(from_ - pos(), to_ - pos());
}

} // namespace toolkit
