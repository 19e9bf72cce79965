#include "stage/silhouette.h"

#include <QBitmap>
#include <QTransform>

#include <cmath>

namespace stage {

QRegion roomAround(const QImage& image)
{
    constexpr double square = 8; // in logical pixels
    const QSizeF size = image.deviceIndependentSize();
    const QSize squares(static_cast<int>(std::ceil(size.width() / square)),
                        static_cast<int>(std::ceil(size.height() / square)));
    QImage means = image.scaled(squares, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    means.setDevicePixelRatio(1);
    const QRegion seen(QBitmap::fromImage(means.createMaskFromColor(qRgba(0, 0, 0, 0), Qt::MaskInColor)));
    const QRegion wide = seen + seen.translated(1, 0) + seen.translated(-1, 0);
    return QTransform::fromScale(size.width() / squares.width(), size.height() / squares.height())
        .map(wide + wide.translated(0, 1) + wide.translated(0, -1));
}

} // namespace stage
