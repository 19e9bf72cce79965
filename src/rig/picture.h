#pragma once

#include "rig/figure.h"

#include <QImage>
#include <QRegion>
#include <QTransform>

#include <vector>

namespace rig {

/// A picture of a figure that is kept up to date: only what moves visibly is painted anew.
class Picture
{
public:
    /// The figure must outlive the picture or be left alone.
    explicit Picture(Figure& figure) : figure_(figure) {}

    /// An empty picture of so many logical pixels, of `ratio` device pixels each. `place` is where the figure
    /// goes, which without it has its upper left corner at the origin.
    void reset(const QSize& size, const QTransform& place, double ratio);

    /// Returns where the picture has changed, in logical pixels.
    QRegion show(const Pose& pose);

    [[nodiscard]] const QImage& image() const { return image_; }
    /// All of it, in logical pixels.
    [[nodiscard]] QRect area() const { return {QPoint(), image_.deviceIndependentSize().toSize()}; }

private:
    /// Completes the transforms, leaving those as they were that have hardly changed. Returns how far
    /// anything has moved.
    double hold(std::vector<QTransform>& bones, const std::vector<int>& draws) const;
    QRegion paint(const std::vector<QRect>& areas);

    Figure& figure_;
    QTransform place_; ///< from drawing units
    double ratio_ = 1;
    double density_ = 1; ///< device pixels to a logical one of the figure at its full size
    QImage image_;
    // As painted last:
    std::vector<int> draws_;   ///< back to front
    std::vector<QRect> areas_; ///< of every draw, in logical pixels; none of those not shown
    std::vector<QTransform> bones_;
    std::vector<double> switches_;
};

} // namespace rig
