#include "player.h"

namespace desk {

using GameJourney = Player;

/// Who has nothing but a keyboard; the mouse lies in a corner.
TEST_F(GameJourney, LeadsFromTheFirstScreenToTheLastAndBackByKeyboardAlone)
{
    begin();
    toQuestion("Asha 2");
    type("orv", "h");
    EXPECT_TRUE(desk->answer("\r").text.contains("W: withdraw"));
    take(1);
    for (const bool byMark : {true, false}) {
        const int k = right();
        for (int step = 0; byMark && step < k; ++step)
            type("orv", QString(rightKey));
        type("orv", byMark ? '\r' : QChar('a' + k - 1));
        desk->box();
        desk->display->type("w"); // which the box does not let through
        EXPECT_EQ(desk->answer("\r").text, "Asha 2 shall I lock it?");
        desk->untilFocus("orv", "cmdok");
        type("orv", "\r");
        untilQuestion();
    }
    type("orv", "w");
    EXPECT_EQ(desk->answer("\r").text, "Asha 2, are you sure you want to leave");
    desk->untilFocus("orv", "cmdokquit");
    EXPECT_EQ(says(), "Total Prize Money Rs. 2,000");
    type("orv", "\r");
    EXPECT_EQ(desk->answer("\r").summary(), farewell);
    desk->untilOnly("thank");
    desk->untilOnly("userselect");
    desk->display->askToClose(desk->windowOf("userselect"));
    EXPECT_EQ(desk->exitCode(), 0);
    EXPECT_EQ(choices(), 2);
}

} // namespace desk
