#include "voice/mouths.h"

#include <algorithm>
#include <array>

namespace voice {

using namespace std::chrono_literals;

namespace {

constexpr auto leastTime = 60ms;
constexpr int changePercent = 55; ///< of a two-part vowel's time

using enum mouth::Shape;

constexpr std::array rows = {
    Phone{"pau", Rest}, Phone{"m", M},     Phone{"b", M},       Phone{"p", M},     Phone{"f", F},
    Phone{"v", F},      Phone{"t", T},     Phone{"d", T},       Phone{"n", T},     Phone{"l", T},
    Phone{"th", T},     Phone{"dh", T},    Phone{"s", S},       Phone{"z", S},     Phone{"sh", S},
    Phone{"zh", S},     Phone{"ch", S},    Phone{"jh", S},      Phone{"eh", E},    Phone{"ey", E},
    Phone{"ih", E},     Phone{"iy", E},    Phone{"y", E},       Phone{"k", E},     Phone{"g", E},
    Phone{"ng", E},     Phone{"hh", E},    Phone{"ax", E},      Phone{"aa", A},    Phone{"ae", A},
    Phone{"ah", A},     Phone{"ao", O},    Phone{"uw", U},      Phone{"uh", U},    Phone{"w", U},
    Phone{"r", U},      Phone{"er", U},    Phone{"ay", A, E},   Phone{"aw", A, U}, Phone{"ow", O, U},
    Phone{"oy", O, E},  Phone{"h#", Rest}, Phone{"brth", Rest}, Phone{"em", M},    Phone{"el", T},
    Phone{"en", T},     Phone{"nx", T},    Phone{"dx", T},      Phone{"hv", E},    Phone{"axr", U},
};

bool mustShow(mouth::Shape shape)
{
    return shape == M || shape == F || shape == Rest;
}

} // namespace

Phone phoneOf(std::string_view name)
{
    const auto* const found = std::ranges::find(rows, name, &Phone::name);
    return found == rows.end() ? Phone() : *found;
}

std::vector<MouthTime> mouthsOf(const std::vector<Segment>& segments)
{
    std::vector<MouthTime> all;
    const auto add = [&all](std::chrono::milliseconds start, mouth::Shape shape) {
        if (all.empty() || all.back().shape != shape)
            all.push_back({start, shape});
    };
    std::chrono::milliseconds start{0};
    for (const Segment& segment : segments) {
        const Phone shapes = phoneOf(segment.name);
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
