#include "voice/spelling.h"

#include "voice/word_table.h"

#include "tables.h"

#include <algorithm>
#include <array>

namespace voice {

namespace {

/// Roman numerals from I to XXXIX, or 0.
int romanValue(std::string_view numeral)
{
    constexpr std::array ones = {"", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX"};
    for (int value = 1; value < 40; ++value)
        if (numeral == std::string(static_cast<std::size_t>(value / 10), 'X') + ones.at(value % 10))
            return value;
    return 0;
}

} // namespace

Abbreviation abbreviationOf(std::string_view word, bool stopped)
{
    thread_local const WordTable abbreviations = wordTable(abbreviationTable);
    const std::string plain = lower(word);
    std::string_view said = stopped ? entry(abbreviations, plain + '.') : std::string_view();
    if (said.empty())
        said = entry(abbreviations, plain);
    const bool stop = !said.ends_with('.');
    return {said.substr(0, said.size() - (stop ? 0 : 1)), stop};
}

std::string unitOfMeasure(std::string_view unit, bool one)
{
    thread_local const WordTable units = wordTable(unitTable);
    const std::string_view said = entry(units, unit);
    const std::size_t bar = said.find('|');
    return std::string(one ? said.substr(0, bar) : said.substr(bar + 1));
}

bool is(std::string_view word, std::string_view kind)
{
    thread_local const WordTable known = wordTable(knownWordTable);
    return entry(known, word).find(kind) != std::string_view::npos;
}

int romanNumeral(std::string_view name, std::string_view numeral)
{
    const bool named =
        name.size() > 1 && isUpper(name[0]) && !isUpper(name[1]) && !is(lower(name), "function");
    const bool sure = numeral != "X" || is(lower(name), "counted");
    return named && sure ? romanValue(numeral) : 0;
}

int countingNumeral(std::string_view capitals)
{
    return capitals.size() > 1 && capitals.find('I') != std::string_view::npos ? romanValue(capitals) : 0;
}

bool isSpelled(std::string_view capitals)
{
    if (capitals.size() < 2 || is(lower(capitals), "loud"))
        return false;
    std::size_t consonants = 0; ///< in a row
    std::size_t most = 0;
    for (const char letter : capitals) {
        consonants = std::string_view("AEIOUY").find(letter) == std::string_view::npos ? consonants + 1 : 0;
        most = std::max(most, consonants);
    }
    return capitals.size() < 4 || most == capitals.size() || (capitals.size() == 4 && most == 3);
}

std::string lower(std::string_view word)
{
    std::string result(word);
    for (char& c : result)
        c = isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
    return result;
}

std::string stem(std::string_view word)
{
    return lower(word.substr(0, word.size() - (word.ends_with("'s") ? 2 : 0)));
}

} // namespace voice
