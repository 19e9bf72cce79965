#include "stage/silhouette.h"

#include <QList>

#include <algorithm>
#include <cmath>

namespace stage {

namespace {

constexpr int leastAlpha = 128; ///< fainter pixels do not count for the exact silhouette
constexpr int square = 8;       ///< of the rough one, in logical pixels

/// The runs of places in a row for which `filled` holds, as rectangles of `unit` logical pixels a place.
template <typename Filled>
void addRuns(QList<QRect>& runs, int row, int columns, int unit, const Filled& filled)
{
    for (int column = 0; column < columns; ++column) {
        const int start = column;
        while (column < columns && filled(column))
            ++column;
        if (column > start)
            runs.append(QRect(start * unit, row * unit, (column - start) * unit, unit));
    }
}

QRegion regionOf(const QList<QRect>& runs)
{
    QRegion region;
    region.setRects(runs.constData(), static_cast<int>(runs.size()));
    return region;
}

const QRgb* lineOf(const QImage& image, int row)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(std::min(row, image.height() - 1)));
}

} // namespace

QRegion exactSilhouette(const QImage& image)
{
    const double ratio = image.devicePixelRatio();
    const QSize size = image.deviceIndependentSize().toSize();
    const auto middle = [ratio](int place) { return static_cast<int>((place + 0.5) * ratio); };
    QList<QRect> runs;
    for (int row = 0; row < size.height(); ++row) {
        const QRgb* line = lineOf(image, middle(row));
        addRuns(runs, row, size.width(), 1, [&](int column) {
            return qAlpha(line[std::min(middle(column), image.width() - 1)]) >= leastAlpha;
        });
    }
    return regionOf(runs);
}

QRegion roughSilhouette(const QImage& image)
{
    const double unit = square * image.devicePixelRatio();
    const auto places = [unit](int pixels) { return static_cast<int>(std::ceil(pixels / unit)); };
    const auto edge = [unit](int place, int pixels) {
        return std::min(static_cast<int>(place * unit), pixels);
    };
    const int width = image.width();
    const int height = image.height();
    QList<QRect> runs;
    for (int row = 0; row < places(height); ++row) {
        const int bottom = edge(row + 1, height);
        addRuns(runs, row, places(width), square, [&](int column) {
            const int left = edge(column, width);
            const int right = edge(column + 1, width);
            for (int y = edge(row, height); y < bottom; ++y) {
                const QRgb* line = lineOf(image, y);
                if (std::any_of(line + left, line + right, [](QRgb pixel) { return pixel != 0; }))
                    return true;
            }
            return false;
        });
    }
    return regionOf(runs);
}

QRegion withRim(const QRegion& rough)
{
    const QRegion wide = rough + rough.translated(square, 0) + rough.translated(-square, 0);
    return wide + wide.translated(0, square) + wide.translated(0, -square);
}

} // namespace stage
