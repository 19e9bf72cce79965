#include "show.h"

namespace game {

namespace {

const std::string easier = "Stop; Play Think; Speak It would now be easier for you to select the answer!";
const std::string used = "; Speak  Sorry! Asha You have already used this lifeline!; Orvanta: (i) ";
const std::string sorry = "Sorry! Asha, you have already used this lifeline";

class LifelineTest : public ShowTest
{
protected:
    LifelineTest()
    {
        after("!update questions set (a, b, c, d) = (10, 30, 50, 10); show orv");
        // Idle prompts have a test of their own.
        control<toolkit::Timer>("orv", "random").setEnabled(false);
    }
    /// "A 25% 375" for every bar that is shown; all stand on their line.
    [[nodiscard]] std::string chart() const
    {
        QStringList bars;
        for (int i = 0; i < 4; ++i) {
            const auto& bar = control<QWidget>("orv", toolkit::element("pollbar", i));
            const auto& percent = control<toolkit::Label>("orv", toolkit::element("pollpercent", i));
            EXPECT_EQ(bar.y() + bar.height(), toolkit::pixels(3015));
            if (!bar.isHidden())
                bars << QString("%1 %2 %3").arg(QChar('A' + i)).arg(percent.text()).arg(bar.height() * 15);
        }
        return bars.join(", ").toStdString();
    }
};

} // namespace

TEST_F(LifelineTest, ThePollShowsSharesOnceAndIsCoveredWithTheOptionsReset)
{
    after("option4:n"); // counted before the poll is taken
    EXPECT_EQ(after("lifeline1"), easier);
    EXPECT_EQ(chart(), "A 10% 150, B 30% 450, C 50% 750, D 11% 165");
    EXPECT_EQ(shows("announcement"), "A: 10%; B: 30%; C: 50%; D: 11%");
    EXPECT_TRUE(hidden("hidepoll"));
    EXPECT_EQ(after("lifeline1"),
              "Stop; Play Sad" + used + " Sorry! Asha You have already used this lifeline");
    after("option1:n");
    EXPECT_FALSE(hidden("hidepoll"));
}

TEST_F(LifelineTest, FiftyFiftyLeavesTheRightOptionAndThePollLeavesOutTheOthers)
{
    // The right option, one that goes, the same again, another one.
    random.numbers = {0.6F, 0.3F, 0.3F, 0};
    EXPECT_EQ(after("!update questions set correct_answer = upper(correct_answer); lifeline3"), easier);
    EXPECT_EQ(shows("option1 option2 option3 option4 announcement"),
              "||C> 1.1 three|D> 1.1 four|C, 1.1 three; D, 1.1 four");
    EXPECT_EQ(after("option1"), "Orvanta: (i) You cannot select a blank option");
    after("lifeline1");
    EXPECT_EQ(chart(), "C 83% 1245, D 17% 255");
    after(answered(1));
    EXPECT_EQ(after("lifeline3"), "Stop; Play GestureDown" + used + sorry);
    EXPECT_EQ(chart(), "C 83% 1245, D 17% 255") << "hidden bars stay hidden under the cover";
}

TEST_F(LifelineTest, AskAFriendCountsTenSecondsThenBeepsAndSaysSo)
{
    EXPECT_EQ(after("lifeline2"), "");
    EXPECT_EQ(shows("clock announcement"), "0|Ten seconds to ask a friend");
    EXPECT_EQ(after("1000ms; lifeline2"), "Stop; Play Uncertain" + used + sorry);
    EXPECT_EQ(shows("clock"), " 1");
    EXPECT_EQ(after("8999ms"), "");
    EXPECT_EQ(after("1ms"),
              "Stop; Play Announce; Speak Your time is over; Orvanta: (i) Asha, your Time Is Over !");
    EXPECT_EQ(beeper.beeps, 4);
}

TEST_F(ShowTest, IdlePromptsWaitForTheFirstQuestionThenQueueAndOpenPanels)
{
    const float number2 = 0.04F;
    const float number7 = 0.24F;
    meanwhile = [this] { run("20000ms"), log << "named"; };
    random.numbers = {0};
    EXPECT_NE(after("show orv").find("First Name ; named; Stop"), std::string::npos);
    for (int tick = 0; tick < 2; ++tick) {
        random.numbers = {number2, number7};
        EXPECT_EQ(after("10000ms"), "Play suggest; Speak Try using the lifelines?; Play Greet; Speak You "
                                    "have currently won rupees !");
        EXPECT_EQ(shows("announcement"), "Lifelines in view");
        EXPECT_EQ(form("orv").bounds().height, 7510) << "opened, and left open";
        EXPECT_EQ(form("orv").bounds().width, 11880);
    }
}

} // namespace game
