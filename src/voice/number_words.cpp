#include "voice/number_words.h"

#include <unicode/rbnf.h>

#include <algorithm>
#include <stdexcept>

namespace voice {

namespace {

constexpr std::size_t longestNumber = 15;
constexpr std::size_t longestDigits = 40;

icu::RuleBasedNumberFormat madeFormat()
{
    UErrorCode status = U_ZERO_ERROR;
    icu::RuleBasedNumberFormat format(icu::URBNF_SPELLOUT, icu::Locale("en", "IN"), status);
    if (U_FAILURE(status))
        throw std::runtime_error("there are no words for numbers");
    return format;
}

std::string spelled(std::string_view digits, const char16_t* rules)
{
    thread_local const icu::RuleBasedNumberFormat format = madeFormat();
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString words;
    icu::FieldPosition position;
    format.format(std::int64_t{std::stoll(std::string(digits))}, rules, words, position, status);
    std::string result;
    words.toUTF8String(result);
    std::erase(result, ',');
    std::ranges::replace(result, '-', ' ');
    return result;
}

} // namespace

std::string cardinal(std::string_view digits)
{
    const bool oneByOne = digits.size() > longestNumber || (digits.size() > 1 && digits[0] == '0');
    return oneByOne ? digitsOneByOne(digits) : spelled(digits, u"%spellout-cardinal-verbose");
}

std::string ordinal(std::string_view digits)
{
    return spelled(digits.substr(0, longestNumber), u"%spellout-ordinal-verbose");
}

std::string year(std::string_view digits)
{
    return spelled(digits, u"%spellout-numbering-year");
}

std::string digitsOneByOne(std::string_view digits)
{
    std::string words;
    for (const char& digit : digits.substr(0, longestDigits))
        words += (words.empty() ? "" : " ") + cardinal({&digit, 1});
    return words;
}

} // namespace voice
