#pragma once

#include <array>
#include <vector>

namespace toolkit {
class Random;
}

namespace game {

/// The options (1 to 4) that fifty-fifty removes: the first two different ones that the draws hit among the
/// removable, or all of these if there are fewer. Options 2 and 3 are drawn twice as often as 1 and 4.
[[nodiscard]] std::vector<int> removedOptions(std::array<bool, 4> removable, toolkit::Random& random);

} // namespace game
