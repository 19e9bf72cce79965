#include "voice/spoken_pieces.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace voice {

namespace {

constexpr std::size_t longestPiece = 200;
constexpr std::size_t longestFirst = 40; ///< takes 50 ms to make on a slow machine
constexpr std::size_t leastPiece = 12;   ///< shorter ones sound chopped

/// Words before which a speaker may well draw breath.
constexpr std::array<std::string_view, 15> openers = {"and", "but",  "or",   "that",  "which",
                                                      "who", "when", "with", "for",   "of",
                                                      "in",  "is",   "are",  "until", "shall"};

std::size_t lengthOf(const SpokenWord& word)
{
    return word.text.size() + 1 + (word.pause == Pause::None ? 0 : 1);
}

/// How many of the words that follow `from` make a piece of at most `longest` letters. The first one ends
/// as soon as it may.
std::size_t cut(const std::vector<SpokenWord>& words, std::size_t from, std::size_t longest)
{
    std::size_t comma = 0;
    std::size_t opener = 0;
    std::size_t letters = 0;
    std::size_t place = from;
    for (; place < words.size(); ++place) {
        const SpokenWord& word = words[place];
        if (letters >= leastPiece && std::ranges::find(openers, word.text) != openers.end())
            opener = place;
        letters += lengthOf(word);
        if (letters > longest && place > from)
            break;
        const bool phrase = word.pause == Pause::Short && letters >= leastPiece;
        if (word.pause > Pause::Short || (phrase && from == 0))
            return place + 1 - from;
        comma = phrase ? place + 1 : comma;
    }
    if (place == words.size())
        return place - from;
    const std::size_t best = comma > from ? comma : opener > from ? opener : place;
    return best - from;
}

} // namespace

std::string SpokenPiece::line() const
{
    constexpr std::array<std::string_view, 5> marks = {"", ",", ",", ".", "?"};
    std::string line;
    for (const SpokenWord& word : words) {
        line += line.empty() ? "" : " ";
        line += word.text;
        line += marks.at(static_cast<std::size_t>(word.pause));
    }
    return line;
}

std::vector<SpokenPiece> spokenPieces(std::vector<SpokenWord> words)
{
    std::vector<SpokenPiece> pieces;
    for (std::size_t from = 0; from < words.size();) {
        const std::size_t count = cut(words, from, pieces.empty() ? longestFirst : longestPiece);
        const auto first = words.begin() + from;
        pieces.push_back({{std::make_move_iterator(first), std::make_move_iterator(first + count)}});
        from += count;
    }
    return pieces;
}

} // namespace voice
