#include "show.h"

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, AGameStartsWithTheGreetingTheNameAndTheFirstQuestion)
{
    desk.random.numbers = {0.5F};
    desk.dialogs.expectInput("Please Enter your First Name ", "Asha", [this] {
        EXPECT_TRUE(desk.form("orv").isVisible());
        EXPECT_EQ(shown("question"), "");
        EXPECT_EQ(desk.hostLog(),
                  "Load genie genie.acs\nShow\nPlay Greet\nSpeak swagat hai aapka ,orvanta main");
    });
    desk.screens.show("orv");
    EXPECT_EQ(desk.open(), "back orv");
    EXPECT_EQ(shown("question"), "Question 1.3");
    EXPECT_EQ(shown("option1"), "A> 1.3 one");
    EXPECT_EQ(shown("option4"), "D> 1.3 four");
    EXPECT_EQ(desk.hostLog(),
              "Stop\nPlay announce\n"
              "Speak Your question is,,Question 1.3,,the four options are,,A,1.3 one,B,1.3 two,"
              "C,1.3 three,D,1.3 four\nPlay think");
    EXPECT_EQ(desk.form("orv").bounds().width, 9030);
    EXPECT_EQ(desk.form("orv").bounds().height, 6510);
}

TEST_F(ShowTest, WithoutAHostTheGameGoesOnInSilence)
{
    hostMissing = true;
    start();
    answerRight();
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    EXPECT_EQ(desk.hostLog(), "");
}

TEST_F(ShowTest, EveryQuestionIsOfItsLevelAndAskedOnce)
{
    // Repeats the row just asked until it has to go elsewhere; draws of prompt messages lie in between.
    desk.random.numbers = {0, 0, 0, 0.25F, 0, 0.25F, 0.99F, 0, 0.99F, 0.5F, 0, 0.75F};
    start();
    QStringList asked;
    for (int n = 1; n <= 15; ++n) {
        asked << shown("question").section(' ', 1);
        answerRight();
        if (n == 15)
            break;
        // With the last rows of a level only one number finds the one left.
        if (n % 5 == 0)
            desk.random.numbers = {0, 0, 0, 0.25F, 0, 0.25F, 0.99F, 0, 0.99F, 0.5F, 0, 0.75F};
        desk.click("orv", "cmdok");
    }
    EXPECT_EQ(asked.join(' ').toStdString(), "1.1 1.2 1.5 1.3 1.4 2.1 2.2 2.5 2.3 2.4 3.1 3.2 3.5 3.3 3.4");
    EXPECT_EQ(desk.control<QPlainTextEdit>("orv", "stage").toPlainText().count('X'), 15);
}

TEST_F(ShowTest, AnIdThatIsPartOfAnAskedOneMayStillBeDrawn)
{
    bank.execute("update questions set question_id = question_id % 10 where Level = '2';"
                 "update questions set Level = '1' where question_id = 1;"
                 "delete from questions where question_id in (12, 13, 14, 15)");
    desk.random.numbers = {0.9F, 0, 0};
    start();
    EXPECT_EQ(shown("question"), "Question 1.1");
    answerRight();
    desk.click("orv", "cmdok");
    EXPECT_EQ(shown("question"), "Question 2.1");
}

TEST_F(ShowTest, LongAndMissingTextsAreShownWhole)
{
    const std::string question(5000, 'Q');
    bank.execute("update questions set question = '" + question + "', answer2 = null, answer3 = 'B & C <i>'");
    start();
    EXPECT_EQ(shown("question").toStdString(), question);
    EXPECT_EQ(shown("option2"), "B> ");
    EXPECT_EQ(shown("option3"), "C> B & C <i>");
    desk.form("orv").grab();
}

} // namespace game
