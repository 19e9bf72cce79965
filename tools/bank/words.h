#pragma once

#include <QString>

#include <vector>

namespace bank {

/// The words of a text that carry meaning, in order: without case, accents, punctuation and the little words
/// of English questions. Next to numbers a sign of
/// arithmetic is a word.
[[nodiscard]] std::vector<QString> meaningfulWords(const QString& text);

[[nodiscard]] bool isNumeric(const QString& word);

/// Whether one word is likely to be the other with a slip of the pen: one letter missing, wrong or in the
/// wrong place. Numbers and short words are never alike.
[[nodiscard]] bool alike(const QString& a, const QString& b);

} // namespace bank
