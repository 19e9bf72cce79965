#pragma once

#include "voice/spoken_word.h"

#include <QString>

#include <memory>
#include <vector>

namespace voice {

/// Turns texts into words for the ear. Used by one thread only.
class TextReader
{
public:
    TextReader();
    ~TextReader();
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;

    /// What is to be said for `text`, whatever that holds: amounts, dates and signs in words, the blank of a
    /// question as "blank", abbreviations by their letters, other scripts by their sounds, words of more than
    /// 40 letters cut. Empty if there is nothing to say.
    [[nodiscard]] std::vector<SpokenWord> words(const QString& text);

private:
    struct Knowledge;
    std::unique_ptr<Knowledge> knowledge_;
};

} // namespace voice
