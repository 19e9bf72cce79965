#include "voice/number_speller.h"

#include <algorithm>
#include <stdexcept>

namespace voice {

namespace {

constexpr std::size_t longestNumber = 15;
constexpr std::size_t longestDigits = 40;

} // namespace

std::string NumberSpeller::cardinal(std::string_view digits)
{
    const bool oneByOne = digits.size() > longestNumber || (digits.size() > 1 && digits[0] == '0');
    return oneByOne ? this->digits(digits) : spelled(digits, u"%spellout-cardinal-verbose");
}

std::string NumberSpeller::ordinal(std::string_view digits)
{
    return spelled(digits.substr(0, longestNumber), u"%spellout-ordinal-verbose");
}

std::string NumberSpeller::year(std::string_view digits)
{
    return spelled(digits, u"%spellout-numbering-year");
}

std::string NumberSpeller::digits(std::string_view digits)
{
    std::string words;
    for (const char& digit : digits.substr(0, longestDigits))
        words += (words.empty() ? "" : " ") + spelled({&digit, 1}, u"%spellout-cardinal-verbose");
    return words;
}

std::string NumberSpeller::spelled(std::string_view digits, const char16_t* rules)
{
    UErrorCode status = U_ZERO_ERROR;
    if (!format_)
        format_ = std::make_unique<icu::RuleBasedNumberFormat>(icu::URBNF_SPELLOUT, icu::Locale("en", "IN"),
                                                               status);
    if (U_FAILURE(status))
        throw std::runtime_error("there are no words for numbers");
    icu::UnicodeString words;
    icu::FieldPosition position;
    format_->format(std::int64_t{std::stoll(std::string(digits))}, rules, words, position, status);
    std::string result;
    words.toUTF8String(result);
    std::erase(result, ',');
    std::ranges::replace(result, '-', ' ');
    return result;
}

} // namespace voice
