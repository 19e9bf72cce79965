#include "player.h"

namespace desk {

using GameJourney = Player;

TEST_F(GameJourney, GoesUpToTheTopPrizeAndBackToTheStart)
{
    begin();
    toQuestion("Asha 2");
    QStringList chosen;
    for (int n = 1; n <= 15; ++n) {
        EXPECT_EQ(says().mid(9, 1).toInt(), (n + 4) / 5) << "level of question " << n;
        chosen << QString::fromStdString(choice(right()));
        win();
        if (n < 15)
            next();
    }
    EXPECT_EQ(says(), "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");

    desk->click("orv", "cmdok");
    EXPECT_EQ(desk->answer("OK").summary(), "Orvanta | Congrulations!!! Asha 2 | information | OK");
    EXPECT_EQ(desk->answer("OK").summary(), "Orvanta | You have won a crore Rupees! | information | OK");
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->untilOnly("thank");
    desk->untilOnly("userselect");
    desk->display->askToClose(desk->windowOf("userselect"));
    EXPECT_EQ(desk->exitCode(), 0);
    chosen.sort();
    EXPECT_EQ(choices(), chosen.join(',').toStdString());
}

TEST_F(GameJourney, TakesBackAChoiceStaysAndLosesToTheSafeStep)
{
    begin();
    toQuestion("");
    for (int n = 1; n <= 6; ++n) {
        win();
        next();
    }
    bank.execute("update questions set a = 1, b = 1, c = 1, d = 1");
    choose(wrong());
    EXPECT_EQ(desk->answer("\x1b").summary().substr(0, 18), "Orvanta |  shall I");
    desk->click("orv", "leave");
    EXPECT_EQ(desk->answer("\x1b").summary(),
              "Orvanta | , are you sure you want to leave | no icon | No | Yes");
    const std::string twice = choice(wrong(), 2);
    const std::string correct =
        bank.value("select correct_answer from questions where question = '" + says().toStdString() + "'");
    choose(wrong());
    desk->answer("Yes");
    EXPECT_EQ(desk->answer("OK").summary(),
              "Orvanta | Sorry!  But your Answer is wrong. The correct answer was " + correct +
                  " | exclamation | OK");
    desk->untilKeyboard(desk->untilFocus("orv", "cmdokquit").at("orv").window);
    EXPECT_EQ(says(), "Total Prize Money Rs. 10,000");
    desk->display->type("\r");
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->untilOnly("thank");
    EXPECT_EQ(choices(), twice);
}

} // namespace desk
