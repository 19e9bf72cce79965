#include "voice/spoken_pieces.h"

#include "voice/spelling.h"

namespace voice {

namespace {

constexpr std::size_t longestPiece = 200;
constexpr std::size_t longestFirst = 40; ///< takes 50 ms to make on a slow machine
constexpr std::size_t leastPiece = 12;   ///< shorter ones sound chopped

/// Where the piece that begins with the word at `from` ends. The first one ends as soon as it may.
std::size_t endOfPiece(const std::vector<SpokenWord>& words, std::size_t from)
{
    std::size_t comma = from;
    std::size_t opener = from;
    std::size_t letters = 0;
    for (std::size_t place = from; place < words.size(); ++place) {
        const SpokenWord& word = words[place];
        if (letters >= leastPiece && is(word.text, "opener"))
            opener = place;
        letters += word.text.size() + (word.pause == Pause::None ? 1 : 2);
        if (letters > (from == 0 ? longestFirst : longestPiece) && place > from)
            return comma > from ? comma : opener > from ? opener : place;
        const bool phrase = word.pause == Pause::Short && letters >= leastPiece;
        if (word.pause > Pause::Short || (phrase && from == 0))
            return place + 1;
        comma = phrase ? place + 1 : comma;
    }
    return words.size();
}

} // namespace

std::string lineOf(const SpokenPiece& piece)
{
    std::string line;
    for (const SpokenWord& word : piece) {
        line += line.empty() ? "" : " ";
        line += word.text;
        line += markOf(word.pause).substr(0, 1);
    }
    return line;
}

std::deque<SpokenPiece> spokenPieces(const std::vector<SpokenWord>& words)
{
    std::deque<SpokenPiece> pieces;
    for (std::size_t from = 0, end = 0; from < words.size(); from = end) {
        end = endOfPiece(words, from);
        pieces.emplace_back(words.begin() + from, words.begin() + end);
    }
    return pieces;
}

} // namespace voice
