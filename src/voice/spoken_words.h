#pragma once

#include <QString>

#include <string>
#include <vector>

namespace voice {

/// The pause behind a word and the tune that leads to it.
enum class Pause { None, Short, End, Question };

/// One word for the ear: ASCII letters and digits, with ' and . inside at most, never empty.
struct SpokenWord
{
    std::string text;
    qsizetype end = 0; ///< how much of the given text has been said with this word, in its characters
    Pause pause = Pause::None;

    bool operator==(const SpokenWord&) const = default;
};

/// What is to be said for `text`, whatever that holds: amounts and signs in words, the blank of a question
/// as "blank", accents folded, words of more than 40 letters cut. Empty if there is nothing to say.
[[nodiscard]] std::vector<SpokenWord> spokenWords(const QString& text);

} // namespace voice
