#include "game/draw.h"
#include "game/ladder.h"

#include <QStringList>

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

} // namespace game
