#pragma once

#include <unicode/rbnf.h>

#include <memory>
#include <string>
#include <string_view>

namespace voice {

/// Puts numbers in the words that are used for them in India, in thousands, lakhs and crores. The digits
/// given are nothing but digits. The rules are made when the first number comes.
class NumberSpeller
{
public:
    /// With a leading zero, or more than fifteen of them, the digits are said one by one.
    [[nodiscard]] std::string cardinal(std::string_view digits);
    [[nodiscard]] std::string ordinal(std::string_view digits);
    [[nodiscard]] std::string year(std::string_view digits);
    /// Each by itself.
    [[nodiscard]] std::string digits(std::string_view digits);

private:
    [[nodiscard]] std::string spelled(std::string_view digits, const char16_t* rules);

    std::unique_ptr<icu::RuleBasedNumberFormat> format_;
};

} // namespace voice
