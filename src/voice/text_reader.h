#pragma once

#include "voice/text_scanner.h"

namespace voice {

/// Turns texts into words for the ear. Used by one thread only.
class TextReader
{
public:
    /// What is to be said for `text`, whatever that holds: amounts, dates and signs in words, the blank of a
    /// question as "blank", abbreviations by their letters, other scripts by their sounds, words of more than
    /// 40 letters cut. Empty if there is nothing to say.
    [[nodiscard]] std::vector<SpokenWord> words(const QString& text)
    {
        const FoldedText folded = folder_.fold(text);
        std::vector<SpokenWord> words = Scanner(folded, patterns_, numbers_).run();
        if (!words.empty())
            words.back().end = text.size();
        return words;
    }

private:
    TextFolder folder_;
    NumberSpeller numbers_;
    Patterns patterns_;
};

} // namespace voice
