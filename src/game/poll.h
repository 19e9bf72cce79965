#pragma once

#include <QtGlobal>

#include <array>

namespace game {

/// What the poll knows of one option.
struct PollOption
{
    qint64 tally = 0;
    bool shown = true; ///< false for an option that has been removed
};

/// The share of each option among those still shown, in whole percent, each rounded by itself with a half
/// going to the even neighbour; 0 for all where nobody has chosen any of them.
[[nodiscard]] std::array<int, 4> pollPercentages(const std::array<PollOption, 4>& options);

} // namespace game
