#pragma once

#include <QRect>

#include <cmath>

namespace toolkit {

/// Positions and sizes of screens are in twips: 1/1440 inch, 15 to a device-independent pixel.
inline constexpr double twipsPerPixel = 15.0;
inline constexpr double twipsPerPoint = 20.0;

[[nodiscard]] inline int pixels(double twips)
{
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

[[nodiscard]] inline double twips(int pixels)
{
    return pixels * twipsPerPixel;
}

struct TwipRect
{
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

struct TwipPoint
{
    double x = 0;
    double y = 0;
};

/// The pixels that a rectangle covers: each edge is rounded by itself, so that neighbours stay neighbours.
[[nodiscard]] inline QRect pixels(const TwipRect& area)
{
    const QPoint topLeft(pixels(area.left), pixels(area.top));
    const QPoint past(pixels(area.left + area.width), pixels(area.top + area.height));
    return {topLeft, past - QPoint(1, 1)};
}

} // namespace toolkit
