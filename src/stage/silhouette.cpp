#include "stage/silhouette.h"

#include <QBitmap>
#include <QTransform>

namespace stage {

namespace {

constexpr int square = 8; ///< of the rough one, in logical pixels

QRegion regionOf(const QImage& mask)
{
    return {QBitmap::fromImage(mask)};
}

/// `image` in another size, with a pixel to a place.
QImage sized(const QImage& image, const QSize& size, Qt::TransformationMode mode)
{
    QImage result = image.size() == size ? image : image.scaled(size, Qt::IgnoreAspectRatio, mode);
    result.setDevicePixelRatio(1);
    return result;
}

} // namespace

QRegion exactSilhouette(const QImage& image)
{
    const QSize size = image.deviceIndependentSize().toSize();
    return regionOf(sized(image, size, Qt::FastTransformation).createAlphaMask(Qt::ThresholdDither));
}

QRegion roughSilhouette(const QImage& image)
{
    const QSizeF size = image.deviceIndependentSize();
    const QSize squares = (size / square).toSize();
    const QImage means = sized(image, squares, Qt::SmoothTransformation);
    const QRegion seen = regionOf(means.createMaskFromColor(qRgba(0, 0, 0, 0), Qt::MaskInColor));
    return QTransform::fromScale(size.width() / squares.width(), size.height() / squares.height()).map(seen);
}

QRegion withRim(const QRegion& rough)
{
    const QRegion wide = rough + rough.translated(square, 0) + rough.translated(-square, 0);
    return wide + wide.translated(0, square) + wide.translated(0, -square);
}

} // namespace stage
