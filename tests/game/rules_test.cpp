#include "game/fifty.h"
#include "game/poll.h"
#include "game/prompts.h"
#include "toolkit/random.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace game {

namespace {

/// A generator that gives the same numbers in every run.
class SeededRandom final : public toolkit::Random
{
public:
    void reseed() override {}
    [[nodiscard]] float next() override { return static_cast<float>(engine_() >> 8U) / 16777216.0F; }

private:
    std::mt19937 engine_{20};
};

} // namespace

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

TEST(Fifty, RemovesTwoOfTheRemovableOrWhatThereIs)
{
    SeededRandom random;
    using Options = std::array<bool, 4>;
    for (const Options removable :
         {Options{true, true, false, true}, {true}, {}, {false, true, false, true}}) {
        const std::vector<int> removed = removedOptions(removable, random);
        ASSERT_EQ(std::ssize(removed), std::min<std::ptrdiff_t>(2, std::ranges::count(removable, true)));
        for (const int k : removed)
            EXPECT_TRUE(removable[k - 1]) << k;
    }
}

TEST(Draws, AreAsFrequentAsTheyShallBe)
{
    SeededRandom random;
    constexpr int draws = 100'000;
    std::map<int, int> removedFirst;
    std::map<int, int> prompted;
    for (int draw = 0; draw < draws; ++draw) {
        ++removedFirst[removedOptions({true, true, true, true}, random).front()];
        ++prompted[pickedPrompt(random.next())];
    }
    for (int k = 1; k <= 4; ++k)
        EXPECT_NEAR(removedFirst[k] / double(draws), k == 1 || k == 4 ? 1.0 / 6 : 1.0 / 3, 0.01) << k;
    EXPECT_EQ(prompted.size(), 26U);
    for (const auto& [k, count] : prompted)
        EXPECT_NEAR(count / double(draws), k == 1 || k == promptCount ? 0.02 : 0.04, 0.004) << k;
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
