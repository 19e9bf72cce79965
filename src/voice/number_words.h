#pragma once

#include <string>
#include <string_view>

namespace voice {

// Numbers in the words that are used for them in India, in thousands, lakhs and crores. What is given are
// nothing but digits.

/// With a leading zero, or more than fifteen of them, the digits are said one by one.
[[nodiscard]] std::string cardinal(std::string_view digits);
[[nodiscard]] std::string ordinal(std::string_view digits);
[[nodiscard]] std::string year(std::string_view digits);
[[nodiscard]] std::string digitsOneByOne(std::string_view digits);

} // namespace voice
