#include "game/draw.h"
#include "game/fifty.h"
#include "game/ladder.h"
#include "game/poll.h"
#include "game/prompts.h"
#include "support/doubles.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace game {

TEST(Ladder, EveryAmountHasItsWordsWithAndWithoutCommas)
{
    EXPECT_EQ(amountinwords("1,60,000"), " one lacks,sixty thousand ");
    EXPECT_EQ(amountinwords("160000"), " one lacks,sixty thousand ");
    EXPECT_EQ(amountinwords("12,50,000"), " twelve lacks fifty thousand ");
    EXPECT_EQ(amountinwords("0"), "");
    for (int n = 1; n <= lastQuestion; ++n)
        EXPECT_NE(amountinwords(prizeLadder()[n]), "") << n;
}

TEST(Ladder, MarkingARungKeepsItsAmountAndTheOtherMarks)
{
    QString text = ladderPanelText();
    EXPECT_EQ(text.size(), 272);
    for (int n = 1; n <= lastQuestion; ++n) {
        text = withRungMarked(text, n);
        const QString line = text.split("\r\n").at(lastQuestion - n);
        EXPECT_TRUE(line.startsWith(QString("%1>%2X").arg(n, 3).arg(n < 10 ? " " : "")))
            << line.toStdString();
        EXPECT_TRUE(line.trimmed().endsWith(prizeLadder()[n])) << line.toStdString();
        EXPECT_EQ(text.count('X'), n);
    }
}

TEST(Draw, PicksTheNearestRowAHalfGoingToTheEvenOne)
{
    struct Case
    {
        float r;
        int count;
        int row;
    };
    const Case cases[] = {{0.99F, 1, 0},         {0.5F, 2, 0},   {0.51F, 2, 1},    {0.125F, 5, 0},
                          {0.126F, 5, 1},        {0.375F, 5, 2}, {0.625F, 5, 2},   {0.875F, 5, 4},
                          {0.874F, 5, 3},        {0.0F, 300, 0}, {0.5F, 300, 150}, {0.9999F, 300, 299},
                          {0.5F, 333334, 166666}};
    for (const auto& [r, count, row] : cases)
        EXPECT_EQ(pickedRow(r, count), row) << r << " of " << count;
}

TEST(Poll, SharesAreThoseOfTheShownOptionsRoundedHalfToEven)
{
    using Shares = std::array<int, 4>;
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    const std::pair<std::array<PollOption, 4>, Shares> cases[] = {
        {{{{10}, {30}, {50}, {10}}}, {10, 30, 50, 10}},
        {{{{10, false}, {30}, {50}, {10, false}}}, {0, 38, 62, 0}},
        {{{{1}, {1}, {1}, {3}}}, {17, 17, 17, 50}},
        {{{{1}, {7}, {0}, {0}}}, {12, 88, 0, 0}},
        {{{{29}, {171}, {0}, {0}}}, {14, 86, 0, 0}},
        {{{{31}, {169}, {0}, {0}}}, {16, 84, 0, 0}},
        {{{{0}, {0}, {0}, {0}}}, {0, 0, 0, 0}},
        {{{{5, false}, {0}, {0}, {9, false}}}, {0, 0, 0, 0}},
        {{{{-4}, {1}, {1}, {0}}}, {0, 50, 50, 0}},
        {{{{most}, {most}, {most}, {most}}}, {25, 25, 25, 25}},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(pollPercentages(cases[i].first), cases[i].second) << "case " << i;
}

TEST(Draws, AreAsFrequentAsTheyShallBeAndRemoveNoOtherOption)
{
    constexpr int draws = 1000;
    std::map<int, int> prompted;
    std::map<int, int> removedFirst;
    for (int draw = 0; draw < draws; ++draw) {
        const float evenly = (static_cast<float>(draw) + 0.5F) / draws;
        ++prompted[pickedPrompt(evenly)];
        using Options = std::array<bool, 4>;
        for (const Options removable : {Options{true, true, false, true},
                                        {true},
                                        {},
                                        {false, true, false, true},
                                        {true, true, true, true}}) {
            support::ScriptedRandom random;
            random.numbers = {evenly};
            const std::vector<int> removed = removedOptions(removable, random);
            ASSERT_EQ(std::set(removed.begin(), removed.end()).size(),
                      std::min<std::ptrdiff_t>(2, std::ranges::count(removable, true)));
            for (const int k : removed)
                EXPECT_TRUE(removable[k - 1]) << k;
            if (std::ranges::count(removable, true) == 4)
                ++removedFirst[removed.front()];
        }
    }
    for (int k = 1; k <= 4; ++k)
        EXPECT_NEAR(removedFirst[k], k == 1 || k == 4 ? draws / 6 : draws / 3, 1) << k;
    EXPECT_EQ(prompted.size(), 26U);
    for (const auto& [k, count] : prompted)
        EXPECT_NEAR(count, k == 1 || k == promptCount ? 20 : 40, 1) << k;
}

TEST(Prompts, SayWhatFitsTheGame)
{
    const auto said = [](const PromptContext& context) {
        QStringList texts;
        for (const int k : {5, 6, 7, 9, 10, 11, 12, 13})
            texts << promptNumber(k, context).text;
        return texts.join('|').toStdString();
    };
    EXPECT_EQ(said({.questionnumber = 11, .safeamount = "3,20,000"}),
              "you have reached question number 11|"
              "The minimum amount that you can take if you loose now is  three lacks twenty thousand |"
              "You have currently won rupees  three lacks twenty thousand !|Try using Statistics poll!!|"
              "Do you wish to use ask a friend lifeline!!|Try fifty fifty lifeline!!|"
              "You have answered 10 questions correctly!|");
    const PromptContext allUsed{1, "0", true, true, true};
    EXPECT_EQ(said(allUsed), "you have reached question number 1|The minimum amount that you can take if you "
                             "loose now is |You have currently won rupees !||||"
                             "You have answered 0 questions correctly!|");
}

} // namespace game
