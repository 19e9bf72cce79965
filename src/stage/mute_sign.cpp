#include "stage/mute_sign.h"

#include <QPainter>
#include <QPainterPath>

namespace stage {

namespace {

constexpr int side = 26;

const QColor edgeColour(0x0b, 0x4d, 0x5f);
const QColor paperColour(0xff, 0xfd, 0xf3);
const QColor crossColour(0xb3, 0x1f, 0x2f);

/// In a square of 26 units, as everything below.
QPainterPath speakerShape()
{
    QPainterPath shape(QPointF(6, 10.5));
    shape.lineTo(8.5, 10.5);
    shape.lineTo(12.5, 7);
    shape.lineTo(12.5, 19);
    shape.lineTo(8.5, 15.5);
    shape.lineTo(6, 15.5);
    shape.closeSubpath();
    return shape;
}

} // namespace

MuteSign::MuteSign(QWidget* parent) : QAbstractButton(parent)
{
    setObjectName("mute");
    setCheckable(true);
    setFixedSize(side, side);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    const auto describe = [this](bool muted) {
        setToolTip(muted ? "Let the host be heard (M)" : "Mute the host (M)");
    };
    setAccessibleName("Mute the host");
    connect(this, &QAbstractButton::toggled, this, describe);
    describe(false);
}

void MuteSign::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edgeColour, 1.5));
    painter.setBrush(underMouse() ? QColor(Qt::white) : paperColour);
    painter.drawEllipse(QRectF(1, 1, side - 2, side - 2));
    painter.setPen(QPen(edgeColour, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(edgeColour);
    painter.drawPath(speakerShape());
    painter.setBrush(Qt::NoBrush);
    if (isChecked()) {
        painter.setPen(QPen(crossColour, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(15.5, 10.5), QPointF(20.5, 15.5));
        painter.drawLine(QPointF(20.5, 10.5), QPointF(15.5, 15.5));
        return;
    }
    painter.setPen(QPen(edgeColour, 1.5, Qt::SolidLine, Qt::RoundCap));
    constexpr int sixteenths = 16; // of a degree, as Qt counts angles
    for (const double radius : {3.0, 6.0}) {
        painter.drawArc(QRectF(14 - radius, 13 - radius, 2 * radius, 2 * radius), -50 * sixteenths,
                        100 * sixteenths);
    }
}

} // namespace stage
