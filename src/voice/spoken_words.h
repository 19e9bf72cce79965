#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace voice {

/// The pause behind a word and the tune that leads to it.
enum class Pause { None, Short, Long, End, Question };

/// How it is written; two commas are a breath.
[[nodiscard]] std::string_view markOf(Pause pause);

/// One word for the ear: ASCII letters, with ' inside at most, never empty.
struct SpokenWord
{
    std::string text;
    qsizetype end = 0; ///< how much of the given text has been said with this
                       ///< word, in its characters
    Pause pause = Pause::None;
    std::string sounds = {}; ///< of a word that only stands for them, as the
                             ///< synthesiser calls them
};

/// What is to be said for `text`, whatever that holds: amounts, dates and signs in words, the blank of a
/// question as "blank", abbreviations by their letters, other scripts by their sounds, words of more than 40
/// letters cut. Empty if there is nothing to say.
[[nodiscard]] std::vector<SpokenWord> spokenWords(const QString& text);

} // namespace voice
