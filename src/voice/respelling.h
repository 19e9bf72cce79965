#pragma once

#include "voice/word_table.h"

#include <string>
#include <string_view>

namespace voice {

/// The words that the synthesiser would not say as they are said in India, in lower case, and their
/// respellings: what respellings.txt holds.
[[nodiscard]] WordTable respellings();

/// The sounds of a word that is spelled as respellings.txt explains, in the synthesiser's names, parted by
/// blanks, with a 0 or 1 behind every vowel; empty if there is no vowel.
[[nodiscard]] std::string soundsOfRespelling(std::string_view respelling);

} // namespace voice
