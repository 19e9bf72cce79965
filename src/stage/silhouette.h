#pragma once

#include <QImage>
#include <QRegion>

namespace stage {

// Of the part `area` of an image, which is given in logical coordinates, as are the results.

/// The pixels that are not faint.
[[nodiscard]] QRegion exactSilhouette(const QImage& image, const QRect& area);

/// The squares of a coarse grid in which anything is to be seen.
[[nodiscard]] QRegion roughSilhouette(const QImage& image, const QRect& area);

/// A rough silhouette with a rim of squares around it.
[[nodiscard]] QRegion withRim(const QRegion& rough);

} // namespace stage
