#include "game/fifty.h"
#include "game/poll.h"
#include "game/prompts.h"
#include "toolkit/random.h"

#include <gtest/gtest.h>

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
    struct Case
    {
        std::array<PollOption, 4> options;
        Shares shares;
    };
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    const Case cases[] = {
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
        EXPECT_EQ(pollPercentages(cases[i].options), cases[i].shares) << "case " << i;
}

TEST(Fifty, RemovesTwoOfTheRemovableOrWhatThereIs)
{
    SeededRandom random;
    const std::pair<std::array<bool, 4>, std::size_t> cases[] = {
        {{true, true, false, true}, 2}, {{true, false, false, false}, 1}, {{false, false, false, false}, 0},
        {{true, true, true, true}, 2},  {{false, true, false, true}, 2},
    };
    for (const auto& [removable, count] : cases) {
        const std::vector<int> removed = removedOptions(removable, random);
        ASSERT_EQ(removed.size(), count);
        for (const int k : removed)
            EXPECT_TRUE(removable[k - 1]) << k;
    }
}

TEST(Fifty, TheMiddleOptionsGoFirstTwiceAsOften)
{
    SeededRandom random;
    constexpr int uses = 60'000;
    std::map<int, int> first;
    for (int use = 0; use < uses; ++use)
        ++first[removedOptions({true, true, true, true}, random).front()];
    const double expected[] = {1.0 / 6, 1.0 / 3, 1.0 / 3, 1.0 / 6};
    for (int k = 1; k <= 4; ++k)
        EXPECT_NEAR(first[k] / double(uses), expected[k - 1], 0.01) << k;
}

TEST(Prompts, TheFirstAndTheLastComeUpHalfAsOftenAsTheOthers)
{
    SeededRandom random;
    constexpr int ticks = 100'000;
    std::map<int, int> drawn;
    for (int tick = 0; tick < ticks; ++tick)
        ++drawn[pickedPrompt(random.next())];
    EXPECT_EQ(drawn.size(), 26U);
    for (const auto& [k, count] : drawn)
        EXPECT_NEAR(count / double(ticks), k == 1 || k == promptCount ? 0.02 : 0.04, 0.004) << k;
}

TEST(Prompts, SayWhatFitsTheGame)
{
    const auto line = [](int k, const PromptContext& context) {
        const Prompt prompt = promptNumber(k, context);
        const char* const opens[] = {"", " +lifelines", " +ladder"};
        return (prompt.animation + '|' + prompt.text + opens[static_cast<int>(prompt.opens)]).toStdString();
    };
    const auto all = [&](const PromptContext& context) {
        std::string lines;
        for (int k = 1; k <= promptCount; ++k)
            lines += line(k, context) + '\n';
        return lines;
    };
    EXPECT_EQ(
        all({.questionnumber = 11, .safeamount = "3,20,000"}),
        "sad|You don't know the answer?\n"
        "suggest|Try using the lifelines? +lifelines\n"
        "think|are you still thinking?\n"
        "confused|Are you confused?\n"
        "Alert|you have reached question number 11\n"
        "Explain|The minimum amount that you can take if you loose now is  three lacks twenty thousand \n"
        "Greet|You have currently won rupees  three lacks twenty thousand ! +ladder\n"
        "|\n"
        "|Try using Statistics poll!!\n"
        "|Do you wish to use ask a friend lifeline!!\n"
        "think|Try fifty fifty lifeline!!\n"
        "|You have answered 10 questions correctly!\n"
        "Search|\nShow|\n"
        "blink|\nblink|\nblink|\nblink|\nblink|\nblink|\nblink|\nblink|\n"
        "Thinking|\nThinking|\nThinking|\n"
        "|\n");

    const PromptContext used{1, "0", true, true, true};
    EXPECT_EQ(line(6, used), "Explain|The minimum amount that you can take if you loose now is ");
    EXPECT_EQ(line(7, used), "Greet|You have currently won rupees ! +ladder");
    EXPECT_EQ(line(9, used) + line(10, used) + line(11, used), "|||");
}

} // namespace game
