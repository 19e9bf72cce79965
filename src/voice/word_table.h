#pragma once

#include <string_view>
#include <unordered_map>

namespace voice {

using WordTable = std::unordered_map<std::string_view, std::string_view>;

/// What the lines of a text file say of their first words; those that begin with # say nothing.
[[nodiscard]] WordTable wordTable(std::string_view lines);

/// Empty for a word that the table does not have.
[[nodiscard]] std::string_view entry(const WordTable& table, std::string_view word);

} // namespace voice
