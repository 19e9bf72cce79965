#pragma once

#include <QImage>
#include <QRegion>

namespace stage {

/// The pixels of `image` that are not faint, in its logical coordinates.
[[nodiscard]] QRegion exactSilhouette(const QImage& image);

/// The squares of a coarse grid in which anything of `image` is to be seen, in its logical coordinates.
[[nodiscard]] QRegion roughSilhouette(const QImage& image);

/// A rough silhouette with a rim of squares around it.
[[nodiscard]] QRegion withRim(const QRegion& rough);

} // namespace stage
