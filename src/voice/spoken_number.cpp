#include "voice/spoken_number.h"

#include <array>
#include <cstdint>

namespace voice {

namespace {

constexpr std::size_t longestNumber = 15;
constexpr std::size_t longestDigits = 40;

constexpr std::array small = {"zero",    "one",     "two",       "three",    "four",
                              "five",    "six",     "seven",     "eight",    "nine",
                              "ten",     "eleven",  "twelve",    "thirteen", "fourteen",
                              "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array tens = {"",      "",      "twenty",  "thirty", "forty",
                             "fifty", "sixty", "seventy", "eighty", "ninety"};

void append(std::vector<std::string>& words, std::uint64_t number)
{
    const auto part = [&words, &number](std::uint64_t size, const char* name) {
        if (number >= size) {
            append(words, number / size);
            words.emplace_back(name);
            number %= size;
        }
    };
    part(10'000'000, "crore");
    part(100'000, "lack"); // the voice does not know the word lakh
    part(1'000, "thousand");
    part(100, "hundred");
    if (number >= small.size()) {
        words.emplace_back(tens.at(number / 10));
        number %= 10;
        if (number == 0)
            return;
    }
    if (number > 0)
        words.emplace_back(small.at(number));
}

} // namespace

std::vector<std::string> cardinalWords(std::string_view digits)
{
    if (digits.size() > longestNumber)
        return digitWords(digits);
    std::uint64_t number = 0;
    for (const char digit : digits)
        number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    std::vector<std::string> words;
    append(words, number);
    if (words.empty())
        words.emplace_back(small.front());
    return words;
}

std::vector<std::string> digitWords(std::string_view digits)
{
    std::vector<std::string> words;
    for (const char digit : digits.substr(0, longestDigits))
        words.emplace_back(small.at(static_cast<std::size_t>(digit - '0')));
    return words;
}

} // namespace voice
