#include "voice/mouths.h"

#include <array>

namespace voice {

using namespace std::chrono_literals;

namespace {

constexpr auto leastTime = 60ms;
constexpr int changePercent = 55; ///< of a two-part vowel's time

struct Row
{
    std::string_view name;
    MouthShape first;
    std::optional<MouthShape> second = std::nullopt;
};

using enum MouthShape;

constexpr std::array rows = {
    Row{"pau", Rest},  Row{"m", M},     Row{"b", M},     Row{"p", M},     Row{"f", F},     Row{"v", F},
    Row{"t", T},       Row{"d", T},     Row{"n", T},     Row{"l", T},     Row{"th", T},    Row{"dh", T},
    Row{"s", S},       Row{"z", S},     Row{"sh", S},    Row{"zh", S},    Row{"ch", S},    Row{"jh", S},
    Row{"eh", E},      Row{"ey", E},    Row{"ih", E},    Row{"iy", E},    Row{"y", E},     Row{"k", E},
    Row{"g", E},       Row{"ng", E},    Row{"hh", E},    Row{"ax", E},    Row{"aa", A},    Row{"ae", A},
    Row{"ah", A},      Row{"ao", O},    Row{"uw", U},    Row{"uh", U},    Row{"w", U},     Row{"r", U},
    Row{"er", U},      Row{"ay", A, E}, Row{"aw", A, U}, Row{"ow", O, U}, Row{"oy", O, E}, Row{"h#", Rest},
    Row{"brth", Rest}, Row{"em", M},    Row{"el", T},    Row{"en", T},    Row{"nx", T},    Row{"dx", T},
    Row{"hv", E},      Row{"axr", U},
};

bool mustShow(MouthShape shape)
{
    return shape == M || shape == F || shape == Rest;
}

} // namespace

std::optional<SoundShapes> shapesOf(std::string_view segment)
{
    for (const Row& row : rows)
        if (row.name == segment)
            return SoundShapes{row.first, row.second};
    return {};
}

std::vector<MouthTime> mouthsOf(const std::vector<Segment>& segments)
{
    std::vector<MouthTime> all;
    const auto add = [&all](std::chrono::milliseconds start, MouthShape shape) {
        if (all.empty() || all.back().shape != shape)
            all.push_back({start, shape});
    };
    std::chrono::milliseconds start{0};
    for (const Segment& segment : segments) {
        const SoundShapes shapes = shapesOf(segment.name).value_or(SoundShapes());
        add(start, shapes.first);
        if (shapes.second)
            add(start + (segment.end - start) * changePercent / 100, *shapes.second);
        start = segment.end;
    }
    std::vector<MouthTime> shown;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto end = i + 1 < all.size() ? all[i + 1].start : start;
        const bool kept = end - all[i].start >= leastTime || mustShow(all[i].shape) || shown.empty();
        if (kept && (shown.empty() || shown.back().shape != all[i].shape))
            shown.push_back(all[i]);
    }
    return shown;
}

} // namespace voice
