#pragma once

#include "bank/failure.h"

#include <vector>

namespace bank {

inline constexpr std::array<const char*, 3> levels = {"1", "2", "3"};
inline constexpr int questionsPerLevel = 5; ///< as many as one game draws

/// From this many questions of a level on, every letter should be right in 22 to 28 of 100 of them. With
/// fewer, one question more or less decides.
inline constexpr int balanceFrom = 40;

[[nodiscard]] bool isLevel(const QString& text);

/// What is wrong with a question, and with which of its texts.
struct Breach
{
    Field field;
    QString reason;
};

enum class Texts {
    Played,  ///< what the database holds
    Reviewed ///< topic and why as well
};

/// What is wrong with one question taken by itself: texts left out or too long (in code points), with
/// control characters or blanks at an end, a level or letter that does not exist, options that differ in
/// nothing but case and blanks.
[[nodiscard]] std::vector<Breach> breaches(const Question& question, Texts demanded);

/// Complains about every breach at the place of its text.
void checkQuestion(const Question& question, Texts demanded, Complaints& complaints);

/// Complains about prompts that are empty, too long or hold control characters.
void checkPrompt(const Prompt& prompt, Complaints& complaints);

/// Complains about questions and prompts that stand in the bank twice.
void checkRepeats(const Bank& bank, Complaints& complaints);

/// Complains, naming `source`, about levels with fewer questions than a game draws.
void checkEnough(const Bank& bank, const Place& source, Complaints& complaints);

/// Warns, naming `source`, if there is no prompt.
void checkPrompts(const Bank& bank, const Place& source, Complaints& complaints);

/// Complains, naming `source`, about levels in which some letter is right too often or too rarely.
void checkBalance(const Bank& bank, const Place& source, Complaints& complaints);

} // namespace bank
