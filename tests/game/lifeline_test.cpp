#include "show.h"

#include "toolkit/controls.h"

namespace game {

using namespace std::chrono_literals;

namespace {

const std::string easier = "Stop\nPlay Think\nSpeak It would now be easier for you to select the answer!";
const std::string used = "\nSpeak  Sorry! Asha You have already used this lifeline!";

class LifelineTest : public ShowTest
{
protected:
    LifelineTest()
    {
        bank.execute("update questions set (a, b, c, d) = (10, 30, 50, 10)");
        start();
        // Idle prompts have a test of their own.
        stand.control<toolkit::Timer>("orv", "random").setEnabled(false);
    }
    /// "A 25% 375" for every bar that is shown; all stand on their line.
    [[nodiscard]] std::string chart() const
    {
        QStringList bars;
        for (int i = 0; i < 4; ++i) {
            const auto& bar = stand.control<QWidget>("orv", toolkit::element("pollbar", i));
            EXPECT_EQ(bar.y() + bar.height(), toolkit::pixels(3015));
            if (!bar.isHidden())
                bars << QChar('A' + i) + (' ' + shown(toolkit::element("pollpercent", i)) + ' ') +
                            QString::number(bar.height() * 15);
        }
        return bars.join(", ").toStdString();
    }
};

} // namespace

TEST_F(LifelineTest, ThePollShowsSharesOnceAndIsCoveredWithTheOptionsReset)
{
    chooseOption(4, false); // counted before the poll is taken
    stand.hostLog();
    stand.click("orv", "lifeline1");
    EXPECT_EQ(chart(), "A 10% 150, B 30% 450, C 50% 750, D 11% 165");
    EXPECT_FALSE(visible("hidepoll"));
    EXPECT_EQ(stand.hostLog(), easier);

    stand.dialogs.expectNotice(" Sorry! Asha You have already used this lifeline");
    stand.click("orv", "lifeline1");
    EXPECT_EQ(stand.hostLog(), "Stop\nPlay Sad" + used);
    chooseOption(1, false);
    EXPECT_TRUE(visible("hidepoll"));
}

TEST_F(LifelineTest, FiftyFiftyLeavesTheRightOptionAndThePollLeavesOutTheOthers)
{
    bank.execute("update questions set correct_answer = upper(correct_answer)");
    // The right option, one that goes, the same again, another one.
    stand.random.numbers = {0.6F, 0.3F, 0.3F, 0};
    stand.hostLog();
    stand.click("orv", "lifeline3");
    EXPECT_EQ(options(), "||C> 1.1 three|D> 1.1 four");
    EXPECT_EQ(stand.hostLog(), easier);
    stand.dialogs.expectNotice("You cannot select a blank option");
    stand.click("orv", "option1");
    stand.click("orv", "lifeline1");
    EXPECT_EQ(chart(), "C 83% 1245, D 17% 255");

    answerUpTo(1);
    stand.hostLog();
    stand.dialogs.expectNotice("Sorry! Asha, you have already used this lifeline");
    stand.click("orv", "lifeline3");
    EXPECT_EQ(stand.hostLog(), "Stop\nPlay GestureDown" + used);
    EXPECT_EQ(chart(), "C 83% 1245, D 17% 255") << "hidden bars stay hidden under the cover";
}

TEST_F(LifelineTest, AskAFriendCountsTenSecondsThenBeepsAndSaysSo)
{
    stand.click("orv", "lifeline2");
    EXPECT_EQ(shown("clock"), "0");
    EXPECT_EQ(stand.hostLog(), "");
    stand.clock.advance(1s);
    EXPECT_EQ(shown("clock"), " 1");
    stand.dialogs.expectNotice("Sorry! Asha, you have already used this lifeline");
    stand.click("orv", "lifeline2");
    EXPECT_EQ(stand.hostLog(), "Stop\nPlay Uncertain" + used);
    stand.clock.advance(8s);

    stand.hostLog();
    stand.dialogs.expectNotice("Asha, your Time Is Over !");
    stand.clock.advance(1s);
    EXPECT_EQ(stand.hostLog(), "Stop\nPlay Announce\nSpeak Your time is over");
    EXPECT_EQ(stand.beeper.beeps, 4);
}

TEST_F(ShowTest, IdlePromptsWaitForTheFirstQuestionThenQueueAndOpenPanels)
{
    const float number2 = 0.04F;
    const float number7 = 0.24F;
    stand.dialogs.expectInput("Please Enter your First Name ", "Asha", [this] {
        stand.hostLog();
        stand.clock.advance(20s);
        EXPECT_EQ(stand.hostLog(), "");
    });
    stand.random.numbers = {0};
    stand.screens.show("orv");
    stand.hostLog();
    for (int tick = 0; tick < 2; ++tick) {
        stand.random.numbers = {number2, number7};
        stand.clock.advance(10s);
        EXPECT_EQ(stand.hostLog(), "Play suggest\nSpeak Try using the lifelines?\n"
                                   "Play Greet\nSpeak You have currently won rupees !");
        EXPECT_EQ(stand.form("orv").bounds().height, 7510) << "opened, and left open";
        EXPECT_EQ(stand.form("orv").bounds().width, 11880);
    }
}

} // namespace game
