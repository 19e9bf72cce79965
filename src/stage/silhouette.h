#pragma once

#include <QImage>
#include <QRegion>

namespace stage {

/// The squares of a coarse grid in which anything of an image is to be seen, with a rim of squares around
/// them; in logical coordinates.
[[nodiscard]] QRegion roomAround(const QImage& image);

} // namespace stage
