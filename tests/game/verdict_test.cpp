#include "show.h"

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, ADeclinedLockIsCountedAndLeavesTheChoiceOpen)
{
    start();
    desk.dialogs.expectConfirm("Asha shall I lock it?", false, [this] {
        EXPECT_EQ(looks(), "c...");
        desk.click("orv", "option2");
    });
    desk.click("orv", "option1");
    EXPECT_EQ(looks(), "....");
    EXPECT_EQ(desk.hostLog(), "Stop\nSpeak Asha,shall I lock it?");
    chooseOption(1, false);
    chooseOption(4, false);
    EXPECT_EQ(bank.value("select a || b || c || d from questions where question_id = 11"), "3112");
    EXPECT_EQ(bank.value("select sum(a + b + c + d) from questions"), "63");
}

TEST_F(ShowTest, ARightAnswerFlashesForNineTicksAndMovesUp)
{
    start();
    chooseOption(3, true);
    EXPECT_EQ(desk.hostLog(),
              "Stop\nSpeak Asha,shall I lock it?\nStop\nPlay Congratulate\nSpeak correct answer");
    EXPECT_EQ(looks(), "..c.");
    for (const char* look : {"....", "..g.", "....", "..g.", "....", "..g.", "....", "..g."}) {
        desk.clock.advance(100ms);
        EXPECT_EQ(looks(), look);
    }
    desk.click("orv", "option1"); // ignored: the answer is locked
    EXPECT_EQ(shown("question"), "Question 1.1");
    EXPECT_FALSE(visible("cmdok"));

    desk.clock.advance(100ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    EXPECT_EQ(looks(), "....");
    EXPECT_EQ(desk.hostLog(), "Play RestPose\nSpeak Total Prize Money Rupees  one thousand ");
    EXPECT_TRUE(visible("eraseoptions") && visible("cmdok"));
    EXPECT_FALSE(enabled("LL") || enabled("leave") || enabled("lifeline1") || enabled("lifeline3"));
    EXPECT_FALSE(desk.control<toolkit::Timer>("orv", "random").isEnabled());
    EXPECT_EQ(focused(), "cmdok");
    desk.click("orv", "option1"); // under the cover

    desk.random.numbers = {0.25F};
    desk.click("orv", "cmdok");
    EXPECT_EQ(shown("question"), "Question 1.2");
    EXPECT_FALSE(visible("eraseoptions") || visible("cmdok"));
    EXPECT_TRUE(enabled("LL") && enabled("leave") && enabled("lifeline2"));
    EXPECT_TRUE(desk.control<toolkit::Timer>("orv", "random").isEnabled());
    EXPECT_EQ(bank.value("select sum(a + b + c + d) from questions"), "61");
}

TEST_F(ShowTest, TheVerdictComparesWithoutLetterCaseButWithBlanks)
{
    bank.execute("update questions set correct_answer = '1.1 THREE ' where question_id = 11");
    start();
    desk.dialogs.expectConfirm("Asha shall I lock it?", true);
    desk.dialogs.expectNotice("Sorry! Asha But your Answer is wrong. The correct answer was 1.1 THREE ");
    desk.click("orv", "option3");
    EXPECT_EQ(looks(), "..c.");
}

TEST_F(ShowTest, AWrongAnswerShowsEveryRightOneAndPaysTheSafeAmount)
{
    start();
    bank.execute("update questions set answer4 = '2.2 THREE' where question_id = 22");
    answerUpTo(5);
    ASSERT_EQ(shown("question"), "Question 2.1");
    answerRight();
    desk.random.numbers = {0.25F};
    desk.click("orv", "cmdok");
    desk.hostLog();
    const QString sorry = "Sorry! Asha But your Answer is wrong. The correct answer was 2.2 Three";
    desk.dialogs.expectConfirm("Asha shall I lock it?", true);
    desk.dialogs.expectNotice(sorry, [this] {
        EXPECT_EQ(looks(), "c.gg");
        EXPECT_TRUE(desk.control<toolkit::Timer>("orv", "random").isEnabled()) << "stopped before the box";
        EXPECT_FALSE(visible("cmdokquit"));
    });
    desk.click("orv", "option1");
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 10,000");
    EXPECT_EQ(desk.hostLog(),
              "Stop\nSpeak Asha,shall I lock it?\nStop\nPlay Decline\nSpeak " + sorry.toStdString() +
                  "\nPlay Congratulate_2\nSpeak Better luck next time"
                  "\nStop\nPlay Announce\nSpeak This game was made by The Orvanta Team. Please send "
                  "your comments by e-mail to team@orvanta.example.");
    EXPECT_FALSE(enabled("LL") || enabled("leave"));
    EXPECT_TRUE(enabled("lifeline1") && enabled("lifeline3"));
    EXPECT_FALSE(desk.control<toolkit::Timer>("orv", "random").isEnabled());
    EXPECT_EQ(focused(), "cmdokquit");
    EXPECT_EQ(bank.value("select a || c from questions where question_id = 22"), "21");
    expectFarewell();
    desk.click("orv", "cmdokquit");
    EXPECT_EQ(desk.open(), "thank");
}

TEST_F(ShowTest, ASafeStepIsAnnouncedAndSlidesTheLadderOpen)
{
    start();
    const double narrow = desk.form("orv").bounds().width;
    answerUpTo(4);
    desk.hostLog();
    answerRight();
    EXPECT_EQ(shown("question"),
              "Total Prize Money Rs. 10,000\nNow you will definately take away Rs. 10,000 with you.");
    EXPECT_TRUE(
        QString::fromStdString(desk.hostLog())
            .endsWith(
                "Speak Total Prize Money Rupees  ten thousand .Now you will definately take away Rupees  "
                "ten thousand  with you!!"));
    EXPECT_EQ(desk.form("orv").bounds().width, narrow + 2850);
    desk.click("orv", "cmdok");
    desk.click("orv", "mws");
    EXPECT_EQ(desk.form("orv").bounds().width, narrow);
    answerUpTo(4);
    answerRight();
    EXPECT_EQ(desk.form("orv").bounds().width, narrow + 2850);
}

TEST_F(ShowTest, ABlankOptionCannotBeChosen)
{
    start();
    desk.control<toolkit::Label>("orv", "option2").setText("");
    desk.dialogs.expectNotice("You cannot select a blank option");
    desk.click("orv", "option2");
    EXPECT_EQ(looks(), "....");
    EXPECT_EQ(bank.value("select sum(a + b + c + d) from questions"), "60");
}

} // namespace game
