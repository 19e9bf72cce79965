#pragma once

#include "bank/failure.h"
#include "db/schema.h"

#include <vector>

namespace bank {

using db::schema::levels;
inline constexpr int questionsPerLevel = 5; ///< as many as one game draws

/// The highest tally that is taken for a count, far from where sums overflow.
inline constexpr qint64 mostChosen = 1'000'000'000;

/// Whether an option can have been chosen so often.
[[nodiscard]] inline bool isCount(qint64 tally)
{
    return tally >= 0 && tally <= mostChosen;
}

[[nodiscard]] bool isLevel(const QString& text);

/// Whether all options are numbers. Those stand in rising order.
[[nodiscard]] bool hasNumericOptions(const Question& question);

enum class Texts {
    Played,  ///< what the database holds
    Reviewed ///< topic and why as well
};

/// Complains about what is wrong with one question taken by itself, at the place of its text: texts left out
/// or too long (in code points), with stray characters or blanks at an end, a level or letter that does not
/// exist, options that differ in nothing but case and blanks, tallies that are no counts. Warns of HTML.
/// Returns whether nothing is wrong.
bool checkQuestion(const Question& question, Texts demanded, Complaints& complaints);

/// Complains about prompts that are empty, too long or hold control characters.
void checkPrompt(const Prompt& prompt, Complaints& complaints);

/// Warns of questions that have the same options, in whatever order.
void checkOptionSets(const Bank& bank, Complaints& complaints);

/// Complains about questions and prompts that stand in the bank twice, and takes them out of it.
void removeRepeats(Bank& bank, Complaints& complaints);

/// Complains, naming `source`, about levels with fewer questions than a game draws.
void checkEnough(const Bank& bank, const Place& source, Complaints& complaints);

/// Warns, naming `source`, if there is no prompt.
void checkPrompts(const Bank& bank, const Place& source, Complaints& complaints);

/// Complains, naming `source`, about levels in which some letter is right too often or too rarely, and warns
/// where that is so among the questions of which all options are numbers.
void checkBalance(const Bank& bank, const Place& source, Complaints& complaints);

} // namespace bank
