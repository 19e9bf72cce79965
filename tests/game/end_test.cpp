#include "show.h"

namespace game {

using namespace std::chrono_literals;

namespace {

const char* const leaveQuestion = "Asha, are you sure you want to leave";

} // namespace

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

TEST_F(ShowTest, AWithdrawalPaysWhatWasWonBeforeTheQuestion)
{
    const std::pair<int, const char*> cases[] = {{0, "0"}, {1, "1,000"}, {5, "10,000"}, {14, "50,00,000"}};
    for (const auto& [answered, amount] : cases) {
        start();
        answerUpTo(answered);
        const QString question = shown("question");
        desk.dialogs.expectConfirm(leaveQuestion, false);
        desk.click("orv", "leave");
        EXPECT_EQ(shown("question"), question);
        desk.dialogs.expectConfirm(leaveQuestion, true);
        desk.click("orv", "leave");
        EXPECT_EQ(shown("question"), QString("Total Prize Money Rs. ") + amount);
        EXPECT_TRUE(visible("eraseoptions") && visible("cmdokquit") && enabled("leave") &&
                    enabled("lifeline1"));
        EXPECT_FALSE(enabled("LL"));
        EXPECT_TRUE(desk.control<toolkit::Timer>("orv", "random").isEnabled());
        EXPECT_EQ(focused(), "cmdokquit");
        expectFarewell();
        desk.click("orv", "cmdokquit");
        EXPECT_EQ(desk.open(), "thank");
        desk.screens.close("thank");
    }
}

TEST_F(ShowTest, WithdrawingWhileTheRightAnswerFlashesPaysTheFormerAmount)
{
    start();
    answerUpTo(2);
    chooseOption(3, true);
    desk.dialogs.expectConfirm(leaveQuestion, true, [this] {
        desk.clock.advance(900ms);
        EXPECT_EQ(shown("question"), "Total Prize Money Rs. 3,000");
        EXPECT_EQ(focused(), "cmdok");
    });
    desk.click("orv", "leave");
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 2,000");
    EXPECT_TRUE(visible("cmdok") && visible("cmdokquit"));
    EXPECT_EQ(focused(), "cmdokquit");
}

TEST_F(ShowTest, TheCreditIsSpokenOnceWhenTheOkButtonGetsTheFocus)
{
    start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.form("orv")));
    desk.hostLog();
    // The box is a real window here, so that the form loses the keyboard and gets it back afterwards.
    desk.dialogs.expectConfirm(leaveQuestion, true, [this] {
        QWidget box(&desk.form("orv"), Qt::Dialog);
        box.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    });
    desk.click("orv", "leave");
    desk.form("orv").activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.form("orv")));
    EXPECT_EQ(QString::fromStdString(desk.hostLog()).count("Play Announce"), 1);
    EXPECT_EQ(focused(), "cmdokquit");
}

TEST_F(ShowTest, AGameClosedFromOutsideSaysFarewellAndEndsTheProgram)
{
    start();
    chooseOption(3, true);
    desk.hostLog();
    desk.dialogs.expectNoticeWith({"Visit"});
    desk.form("orv").close();
    EXPECT_EQ(desk.hostLog(),
              "Stop\nSpeak Visit us at www.orvanta.example for updates and more questions.\nPlay Announce");
    EXPECT_EQ(desk.open(), "");
    QTest::qWait(0);
    EXPECT_TRUE(desk.ended);
    desk.clock.advance(10s);
}

TEST_F(ShowTest, EveryGameStartsAfresh)
{
    start();
    answerUpTo(5);
    expectFarewell();
    desk.screens.close("orv");
    desk.random.numbers = {0};
    start();
    EXPECT_EQ(shown("question"), "Question 1.1");
    EXPECT_EQ(desk.control<QPlainTextEdit>("orv", "stage").toPlainText().count('X'), 0);
    EXPECT_EQ(desk.form("orv").bounds().width, 9030);
}

} // namespace game
