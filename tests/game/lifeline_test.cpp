#include "show.h"

#include "toolkit/controls.h"

namespace game {

using namespace std::chrono_literals;

namespace {

class LifelineTest : public ShowTest
{
protected:
    LifelineTest()
    {
        start();
        // Idle prompts have a test of their own.
        desk.control<toolkit::Timer>("orv", "random").setEnabled(false);
    }
    /// "A 25% 375 at 2640" for every bar that is shown.
    [[nodiscard]] std::string chart() const
    {
        QStringList bars;
        for (int i = 0; i < 4; ++i) {
            const auto& bar = desk.control<QWidget>("orv", toolkit::element("pollbar", i));
            const auto& percent = desk.control<toolkit::Label>("orv", toolkit::element("pollpercent", i));
            EXPECT_EQ(bar.isHidden(), percent.isHidden());
            EXPECT_EQ(bar.y() + bar.height(), toolkit::pixels(3015));
            if (!bar.isHidden())
                bars << QStringLiteral("%1 %2 %3")
                            .arg(QChar('A' + i))
                            .arg(percent.text())
                            .arg(bar.height() * 15);
        }
        return bars.join(", ").toStdString();
    }
    [[nodiscard]] std::string crosses() const
    {
        std::string shown;
        for (const char* name : {"l1l1", "l1l2", "l2l1", "l2l2", "l3l1", "l3l2"})
            shown += visible(name) ? 'X' : '.';
        return shown;
    }
    void setTallies(const char* tallies)
    {
        bank.execute(QStringLiteral("update questions set (a, b, c, d) = (%1)").arg(tallies).toStdString());
    }
    void nextQuestion()
    {
        answerRight();
        desk.click("orv", "cmdok");
        desk.hostLog();
    }
};

} // namespace

TEST_F(LifelineTest, ThePanelSlidesOutAndBackAlsoBesideTheOpenLadder)
{
    const auto before = desk.form("orv").bounds();
    desk.click("orv", "LL");
    EXPECT_EQ(desk.form("orv").bounds(),
              (toolkit::TwipRect{before.left, before.top - 500, before.width, 7510}));
    EXPECT_EQ(crosses(), "......");
    desk.click("orv", "mws");
    EXPECT_EQ(desk.form("orv").bounds(),
              (toolkit::TwipRect{before.left - 1425, before.top - 500, before.width + 2850, 7510}));
    desk.click("orv", "LL");
    desk.click("orv", "mws");
    EXPECT_EQ(desk.form("orv").bounds(), before);
}

TEST_F(LifelineTest, ThePollShowsSharesOnceAndIsCoveredWithTheOptionsReset)
{
    desk.hostLog();
    setTallies("10, 30, 50, 9");
    chooseOption(4, false); // counted before the poll is taken
    desk.click("orv", "lifeline1");
    EXPECT_EQ(chart(), "A 10% 150, B 30% 450, C 50% 750, D 10% 150");
    EXPECT_FALSE(visible("hidepoll"));
    EXPECT_EQ(crosses(), "XX....");
    EXPECT_TRUE(
        QString::fromStdString(desk.hostLog())
            .endsWith("Stop\nPlay Think\nSpeak It would now be easier for you to select the answer!"));

    desk.dialogs.expectNotice(" Sorry! Asha You have already used this lifeline");
    desk.click("orv", "lifeline1");
    EXPECT_FALSE(visible("hidepoll"));
    EXPECT_EQ(desk.hostLog(), "Stop\nPlay Sad\nSpeak  Sorry! Asha You have already used this lifeline!");
    chooseOption(1, false);
    EXPECT_TRUE(visible("hidepoll"));
}

TEST_F(LifelineTest, ThePollLeavesOutWhatFiftyFiftyRemoved)
{
    setTallies("10, 30, 50, 10");
    chooseOption(3, false); // reads the row anew: 51 for C
    desk.random.numbers = {0, 0.999F};
    desk.click("orv", "lifeline3");
    EXPECT_EQ(shown("option1") + '|' + shown("option2") + '|' + shown("option4"), "|B> 1.1 two|");
    desk.click("orv", "lifeline1");
    EXPECT_EQ(chart(), "B 37% 555, C 63% 945");
    EXPECT_EQ(crosses(), "XX..XX");
    nextQuestion();
    EXPECT_EQ(chart(), "B 37% 555, C 63% 945") << "hidden bars stay hidden under the cover";
    EXPECT_NE(shown("option1"), "");
}

TEST_F(LifelineTest, FiftyFiftyLeavesThePollAsItWasAndTheRightOptionWhateverItsCase)
{
    bank.execute("update questions set correct_answer = upper(correct_answer)");
    desk.click("orv", "lifeline1");
    // The right option, one that goes, the same again, another one.
    desk.random.numbers = {0.6F, 0.3F, 0.3F, 0};
    desk.hostLog();
    desk.click("orv", "lifeline3");
    EXPECT_EQ(shown("option1") + '|' + shown("option2"), "|");
    EXPECT_EQ(shown("option3") + '|' + shown("option4"), "C> 1.1 three|D> 1.1 four");
    EXPECT_EQ(chart(), "A 25% 375, B 25% 375, C 25% 375, D 25% 375");
    EXPECT_EQ(desk.hostLog(), "Stop\nPlay Think\nSpeak It would now be easier for you to select the answer!");
    desk.dialogs.expectNotice("You cannot select a blank option");
    desk.click("orv", "option1");

    nextQuestion();
    desk.dialogs.expectNotice("Sorry! Asha, you have already used this lifeline");
    desk.click("orv", "lifeline3");
    EXPECT_EQ(desk.hostLog(),
              "Stop\nPlay GestureDown\nSpeak  Sorry! Asha You have already used this lifeline!");
    EXPECT_NE(shown("option1"), "");
}

TEST_F(LifelineTest, AskAFriendCountsTenSecondsThenBeepsAndSaysSo)
{
    desk.hostLog();
    desk.click("orv", "lifeline2");
    EXPECT_TRUE(visible("clock") && visible("clockback"));
    EXPECT_EQ(shown("clock"), "0");
    EXPECT_EQ(crosses(), "..XX..");
    EXPECT_EQ(desk.hostLog(), "");
    desk.clock.advance(1s);
    EXPECT_EQ(shown("clock"), " 1");
    desk.dialogs.expectNotice("Sorry! Asha, you have already used this lifeline");
    desk.click("orv", "lifeline2");
    EXPECT_EQ(desk.hostLog(),
              "Stop\nPlay Uncertain\nSpeak  Sorry! Asha You have already used this lifeline!");
    desk.clock.advance(8s);
    EXPECT_EQ(shown("clock"), " 9");

    // The tenth second falls into an open lock prompt: its box comes over it, and both are answered.
    desk.dialogs.expectConfirm("Asha shall I lock it?", true, [this] {
        desk.hostLog();
        desk.dialogs.expectNoticeNext("Asha, your Time Is Over !");
        desk.clock.advance(1s);
        EXPECT_EQ(desk.hostLog(), "Stop\nPlay Announce\nSpeak Your time is over");
    });
    desk.click("orv", "option3");
    EXPECT_EQ(desk.beeper.beeps, 4);
    EXPECT_FALSE(visible("clock") || visible("clockback"));
    desk.clock.advance(900ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
}

TEST_F(LifelineTest, TheClockIsCutOffSilentlyByADeclinedLockAndByAWonQuestion)
{
    desk.click("orv", "lifeline2");
    desk.clock.advance(3s);
    chooseOption(1, false);
    EXPECT_FALSE(visible("clock") || visible("clockback"));
    desk.clock.advance(20s);
    EXPECT_EQ(desk.beeper.beeps, 0);
}

TEST_F(LifelineTest, LifelinesCanBeTakenWhileTheAnswerFlashes)
{
    chooseOption(3, true);
    desk.clock.advance(200ms);
    desk.click("orv", "lifeline1");
    desk.click("orv", "lifeline2");
    desk.random.numbers = {0, 0.999F};
    desk.click("orv", "lifeline3");
    EXPECT_TRUE(visible("clock"));
    desk.clock.advance(700ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    EXPECT_FALSE(visible("clock"));
    EXPECT_TRUE(visible("hidepoll"));
    EXPECT_EQ(crosses(), "XXXXXX");
    desk.click("orv", "lifeline1"); // disabled until the next question
    EXPECT_FALSE(enabled("lifeline1"));
}

TEST_F(ShowTest, IdlePromptsWaitForTheFirstQuestionThenQueueAndOpenPanels)
{
    const float number2 = 0.04F;
    const float number7 = 0.24F;
    desk.dialogs.expectInput("Please Enter your First Name ", "Asha", [this] {
        desk.hostLog();
        desk.clock.advance(20s);
        EXPECT_EQ(desk.hostLog(), "");
    });
    desk.random.numbers = {0};
    desk.screens.show("orv");
    desk.hostLog();
    const double height = desk.form("orv").bounds().height;
    const double width = desk.form("orv").bounds().width;
    for (int tick = 0; tick < 2; ++tick) {
        desk.random.numbers = {number2, number7};
        desk.clock.advance(10s);
        EXPECT_EQ(desk.hostLog(), "Play suggest\nSpeak Try using the lifelines?\n"
                                  "Play Greet\nSpeak You have currently won rupees !");
        EXPECT_EQ(desk.form("orv").bounds().height, height + 1000) << "opened, and left open";
        EXPECT_EQ(desk.form("orv").bounds().width, width + 2850);
    }
    // Over an open box, too; and after a withdrawal until the game is closed.
    desk.dialogs.expectConfirm("Asha, are you sure you want to leave", true, [this] {
        desk.hostLog();
        desk.random.numbers = {0};
        desk.clock.advance(5s);
        EXPECT_EQ(desk.hostLog(), "Play sad\nSpeak You don't know the answer?");
    });
    desk.click("orv", "leave");
    desk.hostLog();
    desk.random.numbers = {0};
    desk.clock.advance(5s);
    EXPECT_EQ(desk.hostLog(), "Play sad\nSpeak You don't know the answer?");
}

} // namespace game
