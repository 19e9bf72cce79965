#include "toolkit/contrast.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

double luminance(const QColor& colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor mixed(const QColor& one, const QColor& other, int percent)
{
    const auto channel = [percent](int from, int to) { return from + (to - from) * percent / 100; };
    return {channel(one.red(), other.red()), channel(one.green(), other.green()),
            channel(one.blue(), other.blue())};
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor haloOf(const QColor& text, const QColor& ground, int pixelSize)
{
    constexpr int largePixels = 32;
    constexpr double enoughForLarge = 3.3; // 3 and 4.5 are asked for; the edges of letters are blurred
    constexpr double enough = 5;
    const double wanted = pixelSize >= largePixels ? enoughForLarge : enough;
    // Further away from the text if there is room in that direction, else past it.
    const bool lighter = luminance(text) > luminance(ground);
    QColor end = lighter ? Qt::black : Qt::white;
    if (contrast(text, end) < wanted)
        end = lighter ? Qt::white : Qt::black;
    constexpr int step = 5;
    int percent = 0;
    while (percent < 100 && contrast(text, mixed(ground, end, percent)) < wanted)
        percent += step;
    return mixed(ground, end, percent);
}

void drawText(QPainter& painter, const QRect& box, int flags, const QString& text, const QColor& ground)
{
    const QColor colour = painter.pen().color();
    const QColor halo = haloOf(colour, ground, painter.font().pixelSize());
    painter.setPen(halo);
    if (halo != ground)
        for (const QPoint offset : haloOffsets)
            painter.drawText(box.translated(offset), flags, text);
    painter.setPen(colour);
    painter.drawText(box, flags, text);
}

} // namespace toolkit
