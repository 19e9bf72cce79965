#pragma once

#include "bank/store.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace bank {

/// Prints number, level, letter of the right option and text of questions, one a line: those of one level, if
/// one is given, that hold all of `words` in their text or options, whatever the case and accents. Returns
/// how many there are.
std::size_t listQuestions(const std::vector<Question>& questions, const QString& level,
                          const std::vector<std::string>& words, std::ostream& out);

/// Prints all of a question.
void showQuestion(const Question& question, std::ostream& out);

/// The question of this number; throws Failure if there is none.
[[nodiscard]] Question questionOfNumber(Store& store, qint64 number);

/// Sets texts of a question, each given as "field=text" with a field of level, question, A to D, right.
/// Throws Failure, and changes nothing, if it breaks a rule then or repeats another question.
void setTexts(Store& store, qint64 number, const std::vector<std::string>& texts);

} // namespace bank
