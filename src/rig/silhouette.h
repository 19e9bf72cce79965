#pragma once

#include <QImage>
#include <QRegion>

namespace rig {

/// Where an image of 32 bits a pixel has at least that alpha; the result and `area`, the part that is looked
/// at, are in logical pixels.
[[nodiscard]] QRegion silhouette(const QImage& image, const QRect& area, int leastAlpha);

} // namespace rig
