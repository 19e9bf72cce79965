#include "rig/silhouette.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace rig {

// Run by run, because Qt's way over a bitmap takes five times as long, and the host has it done all the time.
QRegion silhouette(const QImage& image, const QRect& area, int leastAlpha)
{
    const double ratio = image.devicePixelRatio();
    const auto isSeen = [leastAlpha](QRgb pixel) { return qAlpha(pixel) >= leastAlpha; };
    std::vector<QRect> runs;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(static_cast<int>(y * ratio)));
        const auto column = [&](const QRgb* pixel) {
            return static_cast<int>(std::ceil(static_cast<double>(pixel - line) / ratio));
        };
        const QRgb* end = line + static_cast<int>((area.right() + 1) * ratio);
        for (const QRgb* next = line + static_cast<int>(area.left() * ratio); next != end;) {
            const QRgb* first = std::find_if(next, end, isSeen);
            next = std::find_if_not(first, end, isSeen);
            if (column(first) < column(next))
                runs.emplace_back(column(first), y, column(next) - column(first), 1);
        }
    }
    QRegion region;
    region.setRects(runs.data(), static_cast<int>(runs.size()));
    return region;
}

} // namespace rig
