#pragma once

#include <QtGlobal>

#include <string>

namespace voice {

/// The pause behind a word and the tune that leads to it.
enum class Pause { None, Short, Long, End, Question };

/// One word for the ear: ASCII letters, with ' inside at most, never empty.
struct SpokenWord
{
    std::string text;
    qsizetype end = 0; ///< how much of the given text has been said with this word, in its characters
    Pause pause = Pause::None;
    std::string sounds = {}; ///< of a word that only stands for them, as the synthesiser calls them

    bool operator==(const SpokenWord&) const = default;
};

} // namespace voice
