#include "player.h"

namespace desk {

using GameJourney = Player;

/// Who has nothing but a keyboard; the mouse lies in a corner.
TEST_F(GameJourney, GoesUpToTheTopPrizeAndBackToTheStartByKeyboardAlone)
{
    begin();
    toQuestion("Asha 2");
    type("orv", "h");
    EXPECT_TRUE(desk->answer("\r").text.contains("W: withdraw"));
    take(1);
    for (int n = 1; n <= 15; ++n) {
        EXPECT_EQ(says().mid(9, 1).toInt(), (n + 4) / 5) << "level of question " << n;
        const int k = right();
        for (int step = 0; n == 1 && step < k; ++step)
            type("orv", QString(rightKey));
        type("orv", n == 1 ? '\r' : QChar((n % 2 ? 'a' : '1') + k - 1));
        desk->box();
        desk->display->type("w"); // which the box does not let through
        EXPECT_EQ(desk->answer("\r").text, "Asha 2 shall I lock it?");
        desk->untilFocus("orv", "cmdok");
        if (n < 15) {
            type("orv", "\r");
            untilQuestion();
        }
    }
    EXPECT_EQ(says(), "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");
    type("orv", "\r");
    EXPECT_EQ(desk->answer("\r").summary(), "Orvanta | Congrulations!!! Asha 2 | information | OK");
    EXPECT_EQ(desk->answer("\r").summary(), "Orvanta | You have won a crore Rupees! | information | OK");
    EXPECT_EQ(desk->answer("\r").summary(), farewell);
    desk->untilOnly("thank");
    desk->untilOnly("userselect");
    desk->display->askToClose(desk->windowOf("userselect"));
    EXPECT_EQ(desk->exitCode(), 0);
    EXPECT_EQ(choices(), 15);
}

} // namespace desk
