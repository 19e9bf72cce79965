#pragma once

#include <QString>

#include <optional>

namespace game {

/// The level ("1" to "3") of the question that follows question n; none for an n outside 0 to 15.
[[nodiscard]] std::optional<QString> levelAfter(int n);

/// The offset, 0 to count - 1, of the row that a random number r in [0, 1) picks among `count` rows. The
/// first and the last row come up half as often as the others.
[[nodiscard]] int pickedRow(float r, int count);

} // namespace game
