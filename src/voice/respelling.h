#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace voice {

/// The words that the synthesiser would not say as they are said in India, in lower case, and their
/// respellings: what respellings.txt holds.
[[nodiscard]] std::unordered_map<std::string_view, std::string_view> respellings();

/// The sounds of a word that is spelled as respellings.txt explains, in the synthesiser's names, parted by
/// blanks, with a 0 or 1 behind every vowel; empty if there is no vowel.
[[nodiscard]] std::string soundsOfRespelling(std::string_view respelling);

} // namespace voice
