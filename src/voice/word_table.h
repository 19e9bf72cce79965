#pragma once

#include <string_view>
#include <unordered_map>

namespace voice {

using WordTable = std::unordered_map<std::string_view, std::string_view>;

/// What the lines of a text file say of their first words; those that begin with # say nothing.
[[nodiscard]] WordTable wordTable(std::string_view lines);

} // namespace voice
