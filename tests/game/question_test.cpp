#include "show.h"

namespace game {

TEST_F(ShowTest, AGameStartsWithTheGreetingTheNameAndTheFirstQuestion)
{
    bank.execute("update questions set answer2 = null, answer3 = 'B & C <i>'");
    stand.random.numbers = {0.5F};
    stand.dialogs.expectInput("Please Enter your First Name ", "Asha", [this] {
        EXPECT_EQ(stand.hostLog(),
                  "Load genie genie.acs\nShow\nPlay Greet\nSpeak swagat hai aapka ,orvanta main");
    });
    stand.screens.show("orv");
    EXPECT_EQ(stand.open(), "back orv");
    EXPECT_EQ(shown("question"), "Question 1.3");
    EXPECT_EQ(options(), "A> 1.3 one|B> |C> B & C <i>|D> 1.3 four");
    EXPECT_EQ(stand.hostLog(), "Stop\nPlay announce\nSpeak Your question is,,Question 1.3,,the four options "
                               "are,,A,1.3 one,B,,C,B & C <i>,D,1.3 four\nPlay think");
}

TEST_F(ShowTest, WithoutAHostTheGameGoesOnInSilence)
{
    hostMissing = true;
    start();
    answerRight();
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    EXPECT_EQ(stand.hostLog(), "");
}

} // namespace game
