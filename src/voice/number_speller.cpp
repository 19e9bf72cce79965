#include "voice/number_speller.h"

#include <unicode/rbnf.h>

#include <algorithm>
#include <stdexcept>

namespace voice {

namespace {

constexpr std::size_t longestNumber = 15;
constexpr std::size_t longestDigits = 40;

} // namespace

struct NumberSpeller::Rules
{
    UErrorCode status = U_ZERO_ERROR;
    icu::RuleBasedNumberFormat format{icu::URBNF_SPELLOUT, icu::Locale("en", "IN"), status};
};

NumberSpeller::NumberSpeller() : rules_(std::make_unique<Rules>())
{
    if (U_FAILURE(rules_->status))
        throw std::runtime_error("there are no words for numbers");
}

NumberSpeller::~NumberSpeller() = default;

std::string NumberSpeller::cardinal(std::string_view digits) const
{
    const bool oneByOne = digits.size() > longestNumber || (digits.size() > 1 && digits[0] == '0');
    return oneByOne ? this->digits(digits) : spelled(digits, u"%spellout-cardinal-verbose");
}

std::string NumberSpeller::ordinal(std::string_view digits) const
{
    return spelled(digits.substr(0, longestNumber), u"%spellout-ordinal-verbose");
}

std::string NumberSpeller::year(std::string_view digits) const
{
    return spelled(digits, u"%spellout-numbering-year");
}

std::string NumberSpeller::digits(std::string_view digits) const
{
    std::string words;
    for (const char& digit : digits.substr(0, longestDigits))
        words += (words.empty() ? "" : " ") + spelled({&digit, 1}, u"%spellout-cardinal-verbose");
    return words;
}

std::string NumberSpeller::spelled(std::string_view digits, const char16_t* rules) const
{
    icu::UnicodeString words;
    icu::FieldPosition position;
    UErrorCode status = U_ZERO_ERROR;
    rules_->format.format(std::int64_t{std::stoll(std::string(digits))}, rules, words, position, status);
    std::string result;
    words.toUTF8String(result);
    std::erase(result, ',');
    std::ranges::replace(result, '-', ' ');
    return result;
}

} // namespace voice
