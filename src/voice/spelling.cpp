#include "voice/spelling.h"

#include "voice/word_table.h"

#include "tables.h"

#include <algorithm>
#include <array>
#include <span>

namespace voice {

namespace {

struct Row
{
    std::string_view written;
    std::string_view said;
};

template <std::size_t size>
bool holds(const std::array<std::string_view, size>& words, std::string_view word)
{
    return std::ranges::find(words, word) != words.end();
}

const Row* rowOf(std::span<const Row> among, std::string_view written)
{
    const auto found = std::ranges::find(among, written, &Row::written);
    return found == among.end() ? nullptr : &*found;
}

/// Abbreviations that are one only before a full stop,
constexpr std::array withStop = {
    Row{"capt", "captain"}, Row{"col", "colonel"},   Row{"fig", "figure"},
    Row{"gen", "general"},  Row{"lt", "lieutenant"}, Row{"v", "versus"},
};
/// and those where it may end a sentence as well. In lower case.
constexpr std::array shortForms = {Row{"etc", "et cetera"}, Row{"phd", "P H D"}, Row{"tv", "T V"},
                                   Row{"www", "W W W"}};

constexpr auto withoutPlural = std::to_array<std::string_view>(
    {"percent", "square", "hertz", "kilohertz", "megahertz", "gigahertz", "crore", "million", "billion"});

/// Behind them a numeral counts.
constexpr auto countedThings = std::to_array<std::string_view>(
    {"act",   "apollo",  "article", "book", "chapter", "class",  "division", "grade",
     "group", "level",   "mark",    "part", "phase",   "plan",   "round",    "schedule",
     "scene", "section", "stage",   "type", "unit",    "volume", "war",      "windows"});

/// In lower case.
constexpr auto functionWords = std::to_array<std::string_view>(
    {"may",  "shall",  "can",   "do",    "did",  "does",  "should",  "could", "would", "will",
     "am",   "was",    "were",  "if",    "when", "what",  "where",   "why",   "how",   "and",
     "but",  "or",     "as",    "that",  "than", "since", "because", "have",  "had",   "must",
     "so",   "before", "after", "until", "once", "while", "though",  "which", "who",   "whom",
     "then", "here",   "there", "the",   "now",  "yes"});

/// Written in capitals for weight, or words of their own.
constexpr auto loudWords = std::to_array<std::string_view>(
    {"ALL", "AND", "ANY", "ARE", "AT",  "BY",  "FEW", "FOR", "FROM", "HAS", "HOW", "IN",
     "IS",  "MAN", "NEW", "NO",  "NON", "NOT", "OF",  "OFF", "ON",   "ONE", "OR",  "OUT",
     "SIX", "TEN", "THE", "TO",  "TWO", "WAR", "WAS", "YES", "OK",   "IF"});

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

Abbreviation abbreviation(std::string_view word, bool stopped)
{
    const std::string plain = lower(word);
    static const WordTable always = wordTable(abbreviationTable);
    if (const auto found = always.find(plain); found != always.end())
        return {found->second, true};
    if (const Row* row = stopped ? rowOf(withStop, plain) : nullptr)
        return {row->said, true};
    const Row* row = rowOf(shortForms, plain);
    return {row ? row->said : std::string_view(), false};
}

std::string unitOfMeasure(std::string_view unit, bool one)
{
    static const WordTable units = wordTable(unitTable);
    const auto found = units.find(unit);
    std::string said(found == units.end() ? std::string_view() : found->second);
    if (said.empty() || one || holds(withoutPlural, said))
        return said;
    if (said == "foot")
        return "feet";
    return said.insert(std::min(said.find(' '), said.size()), "s");
}

int romanNumeral(std::string_view name, std::string_view numeral)
{
    const bool named = name.size() > 1 && isUpper(name[0]) && !isUpper(name[1]) && !isFunctionWord(name);
    const bool sure = numeral != "X" || isCounted(name);
    return named && sure ? romanValue(numeral) : 0;
}

bool isCounted(std::string_view name)
{
    return holds(countedThings, lower(name));
}

int countingNumeral(std::string_view capitals)
{
    return capitals.size() > 1 && capitals.find('I') != std::string_view::npos ? romanValue(capitals) : 0;
}

bool isFunctionWord(std::string_view word)
{
    return holds(functionWords, lower(word));
}

bool isSpelled(std::string_view capitals)
{
    if (capitals.size() < 2 || holds(loudWords, capitals))
        return false;
    std::size_t consonants = 0; ///< in a row
    std::size_t most = 0;
    for (const char letter : capitals) {
        consonants = std::string_view("AEIOUY").find(letter) == std::string_view::npos ? consonants + 1 : 0;
        most = std::max(most, consonants);
    }
    return capitals.size() < 4 || most == capitals.size() || (capitals.size() == 4 && most == 3);
}

std::string_view monthName(int month)
{
    constexpr auto months =
        std::to_array<std::string_view>({"", "January", "February", "March", "April", "May", "June", "July",
                                         "August", "September", "October", "November", "December"});
    return months.at(month >= 1 && month <= 12 ? static_cast<std::size_t>(month) : 0);
}

std::string lower(std::string_view word)
{
    std::string result(word);
    for (char& c : result)
        c = isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
    return result;
}

} // namespace voice
