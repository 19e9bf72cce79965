#pragma once

#include <QImage>
#include <QRegion>

namespace stage {

/// The squares of a coarse grid in which anything is to be seen of the part `area` of an image; both in
/// logical coordinates.
[[nodiscard]] QRegion roughSilhouette(const QImage& image, const QRect& area);

/// A rough silhouette with a rim of squares around it.
[[nodiscard]] QRegion withRim(const QRegion& rough);

} // namespace stage
