#include "stage/silhouette.h"

#include <QBitmap>
#include <QTransform>

namespace stage {

namespace {

constexpr int square = 8; ///< of the rough one, in logical pixels

} // namespace

QRegion roughSilhouette(const QImage& image, const QRect& area)
{
    const QSize squares((area.width() + square - 1) / square, (area.height() + square - 1) / square);
    const double ratio = image.devicePixelRatio();
    QImage part = image.copy(QRect(area.topLeft() * ratio, area.size() * ratio));
    part.setDevicePixelRatio(1);
    const QImage means = part.scaled(squares, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QRegion seen(QBitmap::fromImage(means.createMaskFromColor(qRgba(0, 0, 0, 0), Qt::MaskInColor)));
    const QTransform toPixels = QTransform::fromTranslate(area.x(), area.y());
    return (QTransform::fromScale(static_cast<double>(area.width()) / squares.width(),
                                  static_cast<double>(area.height()) / squares.height()) *
            toPixels)
        .map(seen);
}

QRegion withRim(const QRegion& rough)
{
    const QRegion wide = rough + rough.translated(square, 0) + rough.translated(-square, 0);
    return wide + wide.translated(0, square) + wide.translated(0, -square);
}

} // namespace stage
