#include "game/poll.h"

#include <algorithm>
#include <cmath>

namespace game {

std::array<int, 4> pollPercentages(const std::array<PollOption, 4>& options)
{
    // A bank from elsewhere may hold any number; what no game can have counted counts as none.
    const auto count = [](const PollOption& option) {
        return option.shown ? static_cast<long double>(std::max<qint64>(option.tally, 0)) : 0.0L;
    };
    long double total = 0;
    for (const PollOption& option : options)
        total += count(option);
    std::array<int, 4> percentages{};
    if (total > 0) {
        std::ranges::transform(options, percentages.begin(), [&](const PollOption& option) {
            return static_cast<int>(std::nearbyint(count(option) * 100 / total));
        });
    }
    return percentages;
}

} // namespace game
