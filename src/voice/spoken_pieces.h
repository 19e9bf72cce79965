#pragma once

#include "voice/spoken_words.h"

#include <deque>

namespace voice {

/// What the voice says in one go.
using SpokenPiece = std::vector<SpokenWord>;

/// As the synthesiser wants it: words and marks with single blanks between.
[[nodiscard]] std::string lineOf(const SpokenPiece& piece);

/// Cuts a speech at the ends of its sentences and, where one is long, within it. The first piece is a short
/// one, so that the voice is soon heard.
[[nodiscard]] std::deque<SpokenPiece> spokenPieces(const std::vector<SpokenWord>& words);

} // namespace voice
