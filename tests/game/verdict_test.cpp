#include "show.h"

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, ARightAnswerFlashesForNineTicksAndMovesUp)
{
    start();
    chooseOption(3, true);
    EXPECT_EQ(stand.hostLog(),
              "Stop\nSpeak Asha,shall I lock it?\nStop\nPlay Congratulate\nSpeak correct answer");
    EXPECT_EQ(looks(), "..c.");
    for (const char* look : {"....", "..g.", "....", "..g.", "....", "..g.", "....", "..g."}) {
        stand.clock.advance(100ms);
        EXPECT_EQ(looks(), look);
    }
    stand.clock.advance(100ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    EXPECT_EQ(looks(), "....");
    EXPECT_EQ(stand.hostLog(), "Play RestPose\nSpeak Total Prize Money Rupees  one thousand ");
    EXPECT_EQ(focused(), "cmdok");
    stand.click("orv", "cmdok");
    EXPECT_EQ(focused(), "LL") << "not on WITHDRAW, which an Enter too many would press";
}

TEST_F(ShowTest, TheVerdictComparesWithoutLetterCaseButWithBlanks)
{
    bank.execute("update questions set correct_answer = '1.1 THREE ' where question_id = 11");
    start();
    stand.dialogs.expectConfirm("Asha shall I lock it?", true);
    stand.dialogs.expectNotice("Sorry! Asha But your Answer is wrong. The correct answer was 1.1 THREE ");
    stand.click("orv", "option3");
    EXPECT_EQ(looks(), "..c.");
}

TEST_F(ShowTest, AWrongAnswerShowsEveryRightOneAndPaysTheSafeAmount)
{
    bank.execute("update questions set answer4 = '2.1 THREE' where question_id = 21");
    start();
    answerUpTo(4);
    stand.hostLog();
    answerRight();
    EXPECT_TRUE(QString::fromStdString(stand.hostLog())
                    .endsWith("Speak Total Prize Money Rupees  ten thousand .Now you will definately take "
                              "away Rupees  ten thousand  with you!!"));
    stand.random.numbers = {0};
    stand.click("orv", "cmdok");
    stand.hostLog();
    const QString sorry = "Sorry! Asha But your Answer is wrong. The correct answer was 2.1 Three";
    stand.dialogs.expectConfirm("Asha shall I lock it?", true);
    stand.dialogs.expectNotice(sorry, [this] { EXPECT_EQ(looks(), "c.gg"); });
    stand.click("orv", "option1");
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 10,000");
    EXPECT_EQ(stand.hostLog(),
              "Stop\nSpeak Asha,shall I lock it?\nStop\nPlay Decline\nSpeak " + sorry.toStdString() +
                  "\nPlay Congratulate_2\nSpeak Better luck next time"
                  "\nStop\nPlay Announce\nSpeak This game was made by The Orvanta Team. Please send "
                  "your comments by e-mail to team@orvanta.example.");
    EXPECT_EQ(focused(), "cmdokquit");
}

} // namespace game
