#include "stage/mute_sign.h"

#include "stage/colours.h"

#include <QPainter>
#include <QSvgRenderer>
#include <QToolButton>

namespace stage {

namespace {

constexpr int side = 26;
constexpr double density = 2; ///< pixels of the picture to a logical one

const char* const waves =
    "<path d='M15.9 10.7 A3 3 0 0 1 15.9 15.3 M17.9 8.4 A6 6 0 0 1 17.9 17.6' fill='none' "
    "stroke='%2' stroke-width='1.5' stroke-linecap='round'/>";
const char* const cross = "<path d='M15.5 10.5 L20.5 15.5 M20.5 10.5 L15.5 15.5' "
                          "stroke='#b31f2f' stroke-width='2' stroke-linecap='round'/>";

/// A speaker on a disc, with `marks` on its right.
QPixmap picture(const QString& marks)
{
    const QString drawing =
        QString("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 26 26'>"
                "<circle cx='13' cy='13' r='12' fill='%1' stroke='%2' stroke-width='1.5'/>"
                "<path d='M6 10.5 H8.5 L12.5 7 V19 L8.5 15.5 H6 Z' fill='%2' stroke='%2' "
                "stroke-width='1.2' stroke-linejoin='round'/>" +
                marks + "</svg>")
            .arg(paperColour.name(), edgeColour.name());
    QPixmap pixmap(QSize(side, side) * density);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(drawing.toUtf8()).render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(density);
    return pixmap;
}

} // namespace

QAbstractButton* makeMuteSign(QWidget& parent)
{
    auto* const sign = new QToolButton(&parent);
    sign->setObjectName("mute");
    sign->setAccessibleName("Mute the host");
    sign->setCheckable(true);
    sign->setFixedSize(side, side);
    sign->setIconSize({side, side});
    sign->setFocusPolicy(Qt::NoFocus);
    sign->setCursor(Qt::PointingHandCursor);
    QIcon icon(picture(waves));
    icon.addPixmap(picture(cross), QIcon::Normal, QIcon::On);
    sign->setIcon(icon);
    sign->setStyleSheet("background: transparent; border: none;"); // whatever the form's says
    const auto describe = [sign](bool muted) {
        sign->setToolTip(muted ? "Let the host be heard (M)" : "Mute the host (M)");
    };
    QObject::connect(sign, &QAbstractButton::toggled, sign, describe);
    describe(false);
    return sign;
}

} // namespace stage
