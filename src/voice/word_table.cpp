#include "voice/word_table.h"

#include <algorithm>

namespace voice {

WordTable wordTable(std::string_view lines)
{
    WordTable all;
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        const std::size_t blank = line.find(' ');
        if (blank != std::string_view::npos && line[0] != '#')
            all.emplace(line.substr(0, blank), line.substr(blank + 1));
        lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    }
    return all;
}

std::string_view entry(const WordTable& table, std::string_view word)
{
    const auto found = table.find(word);
    return found == table.end() ? std::string_view() : found->second;
}

} // namespace voice
