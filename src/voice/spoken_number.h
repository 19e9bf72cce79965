#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace voice {

/// A whole number as it is said in India, in thousands, lakhs and crores. `digits` holds nothing but
/// digits; more than fifteen of them are said one by one.
[[nodiscard]] std::vector<std::string> cardinalWords(std::string_view digits);

/// Each digit by itself.
[[nodiscard]] std::vector<std::string> digitWords(std::string_view digits);

} // namespace voice
