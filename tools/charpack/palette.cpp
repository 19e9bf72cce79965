#include "palette.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace {

constexpr std::size_t maxColours = 256;
constexpr int dropped = 3; ///< low bits of each channel by which colours count as one

struct Shade
{
    std::array<int, 3> channels{};
    int pixels = 0;
};

/// A part of the colour space that one entry of the palette stands for.
struct Box
{
    std::vector<Shade> shades;
    std::size_t channel = 0; ///< the one in which it is widest
    long weight = 0;         ///< how much there is to gain by cutting it
};

Box boxOf(std::vector<Shade> shades)
{
    Box box{std::move(shades)};
    int widest = -1;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto of = [channel](const Shade& shade) { return shade.channels.at(channel); };
        const auto [low, high] = std::ranges::minmax(box.shades, {}, of);
        if (of(high) - of(low) > widest) {
            widest = of(high) - of(low);
            box.channel = channel;
        }
    }
    long pixels = 0;
    for (const Shade& shade : box.shades)
        pixels += shade.pixels;
    box.weight = pixels * widest;
    return box;
}

/// Cuts the box where half of its pixels lie on either side.
std::pair<Box, Box> halves(Box box)
{
    std::ranges::sort(box.shades, {}, [&](const Shade& shade) { return shade.channels.at(box.channel); });
    long all = 0;
    for (const Shade& shade : box.shades)
        all += shade.pixels;
    long below = 0;
    auto cut = box.shades.begin();
    while (cut + 2 < box.shades.end() && 2 * (below + cut->pixels) < all)
        below += (cut++)->pixels;
    ++cut;
    return {boxOf({box.shades.begin(), cut}), boxOf({cut, box.shades.end()})};
}

QRgb mean(const Box& box)
{
    std::array<long, 3> sum{};
    long pixels = 0;
    for (const Shade& shade : box.shades) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            sum.at(channel) += static_cast<long>(shade.channels.at(channel)) * shade.pixels;
        pixels += shade.pixels;
    }
    const auto of = [&](std::size_t channel) {
        return static_cast<int>(sum.at(channel) / std::max(1L, pixels));
    };
    return qRgb(of(0), of(1), of(2));
}

} // namespace

QImage inFewColours(const QImage& image)
{
    const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
    std::unordered_map<QRgb, Shade> shades;
    for (int y = 0; y < opaque.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(opaque.constScanLine(y));
        for (int x = 0; x < opaque.width(); ++x) {
            const auto part = [&](int value) { return (value >> dropped) << dropped; };
            const QRgb key = qRgb(part(qRed(line[x])), part(qGreen(line[x])), part(qBlue(line[x])));
            Shade& shade = shades[key];
            shade.channels = {qRed(line[x]), qGreen(line[x]), qBlue(line[x])};
            ++shade.pixels;
        }
    }
    std::vector<Shade> all;
    all.reserve(shades.size());
    for (const auto& [key, shade] : shades)
        all.push_back(shade);
    std::vector<Box> boxes{boxOf(std::move(all))};
    while (boxes.size() < maxColours) {
        const auto heaviest = std::ranges::max_element(boxes, {}, &Box::weight);
        if (heaviest->weight == 0)
            break;
        auto [first, second] = halves(std::move(*heaviest));
        *heaviest = std::move(first);
        boxes.push_back(std::move(second));
    }
    QList<QRgb> palette;
    for (const Box& box : boxes)
        palette.append(mean(box));
    return opaque.convertToFormat(QImage::Format_Indexed8, palette, Qt::ThresholdDither);
}
