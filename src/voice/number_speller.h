#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace voice {

/// Puts numbers in the words that are used for them in India, in thousands, lakhs and crores. The digits
/// given are nothing but digits.
class NumberSpeller
{
public:
    NumberSpeller();
    ~NumberSpeller();
    NumberSpeller(const NumberSpeller&) = delete;
    NumberSpeller& operator=(const NumberSpeller&) = delete;

    /// With a leading zero, or more than fifteen of them, the digits are said one by one.
    [[nodiscard]] std::string cardinal(std::string_view digits) const;
    [[nodiscard]] std::string ordinal(std::string_view digits) const;
    [[nodiscard]] std::string year(std::string_view digits) const;
    /// Each by itself.
    [[nodiscard]] std::string digits(std::string_view digits) const;

private:
    [[nodiscard]] std::string spelled(std::string_view digits, const char16_t* rules) const;

    struct Rules;
    std::unique_ptr<Rules> rules_;
};

} // namespace voice
