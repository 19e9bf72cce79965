#pragma once

#include <string>
#include <string_view>

namespace voice {

/// How an abbreviation is said, empty for what is none; whether a full stop behind it belongs to it is
/// `stop`.
struct Abbreviation
{
    std::string_view said;
    bool stop = false;
};
/// `stopped` tells whether a full stop follows.
[[nodiscard]] Abbreviation abbreviationOf(std::string_view word, bool stopped);

/// `unit` as it is written behind a number, `one` for that number; empty for what is none.
[[nodiscard]] std::string unitOfMeasure(std::string_view unit, bool one);

/// Whether words.txt knows the word, in lower case, as one of this `kind`.
[[nodiscard]] bool is(std::string_view word, std::string_view kind);

/// "Rajendra" and "II" make 2; 0 if the two are no name and Roman numeral.
[[nodiscard]] int romanNumeral(std::string_view name, std::string_view numeral);

/// "III" on its own makes 3; 0 for what may be letters.
[[nodiscard]] int countingNumeral(std::string_view capitals);

/// A word in capitals that is spelled by its letters: UPI, not NASA.
[[nodiscard]] bool isSpelled(std::string_view capitals);

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

/// In lower case, and without the 's that the synthesiser takes for a word of its own.
[[nodiscard]] std::string stem(std::string_view word);

} // namespace voice
