#include "show.h"

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, FifteenRightAnswersWinACrore)
{
    start();
    answerUpTo(14);
    answerRight();
    EXPECT_EQ(shown("question"), "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");
    stand.hostLog();
    stand.dialogs.expectNotice("Congrulations!!! Asha", [this] {
        EXPECT_EQ(stand.hostLog(), "Stop\nPlay DoMagic1\nSpeak Congrulations!!! Asha\nPlay DoMagic2\n"
                                   "Speak You have won a crore Rupees!\nPlay Congratulate_2");
    });
    stand.dialogs.expectNotice("You have won a crore Rupees!");
    expectFarewell();
    stand.click("orv", "cmdok");
    EXPECT_EQ(stand.open(), "thank");
    EXPECT_EQ(bank.value("select sum(a) || ' ' || sum(c) from questions"), "15 30");
}

TEST_F(ShowTest, AGameClosedFromOutsideSaysFarewellAndEndsTheProgram)
{
    start();
    chooseOption(3, true);
    stand.hostLog();
    // Asked again while it says so.
    stand.dialogs.expectNotice(
        "Thank you for playing. Visit www.orvanta.example for updates and more questions.",
        [this] { stand.screens.close("orv"); });
    stand.form("orv").close();
    EXPECT_EQ(stand.hostLog(),
              "Stop\nSpeak Visit us at www.orvanta.example for updates and more questions.\nPlay Announce");
    EXPECT_EQ(stand.open(), "");
    QTest::qWait(0);
    EXPECT_TRUE(stand.ended);
    stand.clock.advance(10s);
}

} // namespace game
