#include "game/ladder.h"

#include <algorithm>

namespace game {

namespace {

struct Words
{
    const char* digits;
    const char* words;
};

// The host says them just so, odd spellings and blanks included.
constexpr Words wordsOfAmounts[] = {
    {"1000", " one thousand "},
    {"2000", " two thousand "},
    {"3000", " three thousand "},
    {"5000", " five thousand "},
    {"10000", " ten thousand "},
    {"20000", " twenty thousand "},
    {"40000", " fourty thousand "},
    {"80000", " eighty thousand "},
    {"160000", " one lacks,sixty thousand "},
    {"320000", " three lacks twenty thousand "},
    {"640000", " six lacks forty thousand "},
    {"1250000", " twelve lacks fifty thousand "},
    {"2500000", " twenty five lacks "},
    {"5000000", " fixty lacks "},
    {"10000000", " one crore "},
};

// Top rung first. The blanks of the first and the seventh line are as odd as they look.
constexpr const char* panelLines[] = {
    " 15> 1,00,00,000 ", " 14>   50,00,000",  " 13>   25,00,000", " 12>   12,50,000", " 11>    6,40,000",
    " 10>    3,20,000",  "  9>     1,60,000", "  8>      80,000", "  7>      40,000", "  6>      20,000",
    "  5>      10,000",  "  4>       5,000",  "  3>       3,000", "  2>       2,000", "  1>       1,000",
};

} // namespace

const Ladder& prizeLadder()
{
    static const Ladder ladder = {"0",         "1,000",     "2,000",     "3,000",      "5,000",    "10,000",
                                  "20,000",    "40,000",    "80,000",    "1,60,000",   "3,20,000", "6,40,000",
                                  "12,50,000", "25,00,000", "50,00,000", "1,00,00,000"};
    return ladder;
}

QString amountinwords(const QString& amount)
{
    const QString digits = QString(amount).remove(',');
    const auto* const found =
        std::ranges::find_if(wordsOfAmounts, [&](const Words& row) { return digits == QString(row.digits); });
    return found == std::ranges::end(wordsOfAmounts) ? QString() : QString::fromLatin1(found->words);
}

QString ladderPanelText()
{
    QString text;
    for (const char* line : panelLines)
        text += QString(line) + "\r\n";
    return text;
}

QString withRungMarked(const QString& panelText, int n)
{
    constexpr qsizetype lengthOfNumber = 4; // " 14>", or "  9>" less its first blank and with the one after
    constexpr qsizetype mostBlanksTaken = 3;

    const qsizetype mark = panelText.indexOf(QString(" %1>").arg(n)) + lengthOfNumber;
    qsizetype rest = mark;
    while (rest < mark + mostBlanksTaken && panelText[rest] == QChar::Space)
        ++rest;
    return panelText.first(mark) + 'X' + panelText.sliced(rest);
}

} // namespace game
