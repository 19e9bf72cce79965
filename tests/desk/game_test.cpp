#include "player.h"

namespace desk {

using GameJourney = Player;

TEST_F(GameJourney, GoesUpToTheTopPrizeAndBackToTheStart)
{
    begin();
    toQuestion("Asha 2");
    QStringList chosen;
    for (int n = 1; n <= 15; ++n) {
        EXPECT_EQ(says().mid(9, 1).toInt(), (n + 4) / 5) << "level of question " << n;
        chosen << QString::fromStdString(choice(right()));
        win();
        if (n < 15)
            next();
    }
    EXPECT_EQ(says(), "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");

    desk->click("orv", "cmdok");
    EXPECT_EQ(desk->answer("OK").summary(), "Orvanta | Congrulations!!! Asha 2 | information | OK");
    EXPECT_EQ(desk->answer("OK").summary(), "Orvanta | You have won a crore Rupees! | information | OK");
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->untilOnly("thank");
    desk->untilOnly("userselect");
    desk->display->askToClose(desk->windowOf("userselect"));
    EXPECT_EQ(desk->exitCode(), 0);
    chosen.sort();
    EXPECT_EQ(choices(), chosen.join(',').toStdString());
}

} // namespace desk
