#include "game/draw.h"
#include "game/ladder.h"

#include <gtest/gtest.h>

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
    for (int n = 1; n <= lastQuestion; ++n)
        text = withRungMarked(text, n);
    EXPECT_EQ(text.toStdString(), " 15>X1,00,00,000 \r\n"
                                  " 14>X50,00,000\r\n"
                                  " 13>X25,00,000\r\n"
                                  " 12>X12,50,000\r\n"
                                  " 11>X 6,40,000\r\n"
                                  " 10>X 3,20,000\r\n"
                                  "  9> X 1,60,000\r\n"
                                  "  8> X  80,000\r\n"
                                  "  7> X  40,000\r\n"
                                  "  6> X  20,000\r\n"
                                  "  5> X  10,000\r\n"
                                  "  4> X   5,000\r\n"
                                  "  3> X   3,000\r\n"
                                  "  2> X   2,000\r\n"
                                  "  1> X   1,000\r\n");
}

TEST(Draw, LevelsChangeAfterQuestions5And10)
{
    const std::pair<int, const char*> cases[] = {{0, "1"}, {4, "1"},  {5, "2"},
                                                 {9, "2"}, {10, "3"}, {15, "3"}};
    for (const auto& [asked, level] : cases)
        EXPECT_EQ(levelAfter(asked), level) << asked;
    EXPECT_EQ(levelAfter(-1), std::nullopt);
    EXPECT_EQ(levelAfter(16), std::nullopt);
}

TEST(Draw, PicksTheNearestRowAHalfGoingToTheEvenOne)
{
    struct Case
    {
        float r;
        int count;
        int row;
    };
    const Case cases[] = {{0.99F, 1, 0},       {0.5F, 2, 0},          {0.51F, 2, 1},  {0.124F, 5, 0},
                          {0.125F, 5, 0},      {0.126F, 5, 1},        {0.375F, 5, 2}, {0.625F, 5, 2},
                          {0.875F, 5, 4},      {0.874F, 5, 3},        {0.0F, 300, 0}, {0.5F, 300, 150},
                          {0.9999F, 300, 299}, {0.5F, 333334, 166666}};
    for (const auto& [r, count, row] : cases)
        EXPECT_EQ(pickedRow(r, count), row) << r << " of " << count;
}

} // namespace game
