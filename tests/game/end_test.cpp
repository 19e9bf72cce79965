#include "show.h"

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, FifteenRightAnswersWinACrore)
{
    start();
    answerUpTo(14);
    answerRight();
    EXPECT_EQ(shown("question"), "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");
    desk.hostLog();
    desk.dialogs.expectNotice("Congrulations!!! Asha", [this] {
        EXPECT_EQ(desk.hostLog(), "Stop\nPlay DoMagic1\nSpeak Congrulations!!! Asha\nPlay DoMagic2\n"
                                  "Speak You have won a crore Rupees!\nPlay Congratulate_2");
    });
    desk.dialogs.expectNotice("You have won a crore Rupees!");
    expectFarewell();
    desk.click("orv", "cmdok");
    EXPECT_EQ(desk.open(), "thank");
    EXPECT_EQ(bank.value("select sum(a) || ' ' || sum(c) from questions"), "15 30");
}

TEST_F(ShowTest, AGameClosedFromOutsideSaysFarewellAndEndsTheProgram)
{
    start();
    chooseOption(3, true);
    desk.hostLog();
    // Asked again while it says so.
    desk.dialogs.expectNotice(
        "Thank you for playing. Visit www.orvanta.example for updates and more questions.",
        [this] { desk.screens.close("orv"); });
    desk.form("orv").close();
    EXPECT_EQ(desk.hostLog(),
              "Stop\nSpeak Visit us at www.orvanta.example for updates and more questions.\nPlay Announce");
    EXPECT_EQ(desk.open(), "");
    QTest::qWait(0);
    EXPECT_TRUE(desk.ended);
    desk.clock.advance(10s);
}

} // namespace game
