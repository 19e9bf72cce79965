#pragma once

#include "voice/spoken_word.h"

#include <string>
#include <vector>

namespace voice {

/// What the voice says in one go.
struct SpokenPiece
{
    std::vector<SpokenWord> words;

    /// As the synthesiser wants it: words and marks with single blanks between.
    [[nodiscard]] std::string line() const;
};

/// Cuts a speech at the ends of its sentences and, where one is long, within it. The first piece is a
/// short one, so that the voice is soon heard.
[[nodiscard]] std::vector<SpokenPiece> spokenPieces(std::vector<SpokenWord> words);

} // namespace voice
