#pragma once

#include <string>
#include <string_view>

namespace voice {

/// How an abbreviation, a unit of measure or a numeral is said; empty for what is none of them.

/// `stopped` tells whether a full stop follows; whether it belongs to the word is `stop`.
struct Abbreviation
{
    std::string_view said;
    bool stop = false;
};
[[nodiscard]] Abbreviation abbreviation(std::string_view word, bool stopped);

/// `unit` as it is written behind a number; `one` for that number.
[[nodiscard]] std::string unitOfMeasure(std::string_view unit, bool one);

/// "Rajendra" and "II" make 2; 0 if the two are no name and Roman numeral.
[[nodiscard]] int romanNumeral(std::string_view name, std::string_view numeral);
/// Numerals behind this word count ("World War II"), while kings are told apart by ordinals.
[[nodiscard]] bool isCounted(std::string_view name);

/// "III" on its own makes 3; 0 for what may be letters.
[[nodiscard]] int countingNumeral(std::string_view capitals);
/// Which, when, the and the like: they are no name, and begin a sentence behind a full stop.
[[nodiscard]] bool isFunctionWord(std::string_view word);

/// A word in capitals that is spelled by its letters: UPI, not NASA.
[[nodiscard]] bool isSpelled(std::string_view capitals);

[[nodiscard]] std::string_view monthName(int month);

[[nodiscard]] inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

[[nodiscard]] inline bool isUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}

[[nodiscard]] inline bool isLetter(char c)
{
    return isUpper(c) || (c >= 'a' && c <= 'z');
}

[[nodiscard]] std::string lower(std::string_view word);

} // namespace voice
