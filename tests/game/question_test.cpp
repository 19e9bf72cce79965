#include "show.h"

namespace game {

TEST_F(ShowTest, AGameStartsWithTheGreetingTheNameAndTheFirstQuestion)
{
    bank.execute("update questions set answer2 = null, answer3 = 'B & C <i>'");
    desk.random.numbers = {0.5F};
    desk.dialogs.expectInput("Please Enter your First Name ", "Asha", [this] {
        EXPECT_EQ(desk.hostLog(),
                  "Load genie genie.acs\nShow\nPlay Greet\nSpeak swagat hai aapka ,orvanta main");
    });
    desk.screens.show("orv");
    EXPECT_EQ(desk.open(), "back orv");
    EXPECT_EQ(shown("question"), "Question 1.3");
    EXPECT_EQ(options(), "A> 1.3 one|B> |C> B & C <i>|D> 1.3 four");
    EXPECT_EQ(desk.hostLog(), "Stop\nPlay announce\nSpeak Your question is,,Question 1.3,,the four options "
                              "are,,A,1.3 one,B,,C,B & C <i>,D,1.3 four\nPlay think");
}

TEST_F(ShowTest, WithoutAHostTheGameGoesOnInSilence)
{
    hostMissing = true;
    start();
    answerRight();
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    EXPECT_EQ(desk.hostLog(), "");
}

} // namespace game
