#pragma once

#include <QString>

#include <array>

namespace game {

inline constexpr int lastQuestion = 15;
inline constexpr int questionsPerStep = 5; ///< every fifth question is a safe step

/// Amounts in rupees as display texts; entry n is what a correct answer to question n is worth.
using Ladder = std::array<QString, lastQuestion + 1>;

[[nodiscard]] const Ladder& prizeLadder();

/// The words in which the host says an amount of the ladder, with a blank at both ends; "" for "0".
[[nodiscard]] QString amountinwords(const QString& amount);

/// The ladder panel's text at the start of a game: 15 lines, top rung first, each ended by CR LF.
[[nodiscard]] QString ladderPanelText();

/// The panel's text with an "X" at rung n (1 to 15) in place of up to three blanks before its amount.
[[nodiscard]] QString withRungMarked(const QString& panelText, int n);

} // namespace game
