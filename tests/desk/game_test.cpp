#include "player.h"

namespace desk {

namespace {

const char* const wholeLadder = " 15>X1,00,00,000 \n 14>X50,00,000\n 13>X25,00,000\n 12>X12,50,000\n"
                                " 11>X 6,40,000\n 10>X 3,20,000\n  9> X 1,60,000\n  8> X  80,000\n"
                                "  7> X  40,000\n  6> X  20,000\n  5> X  10,000\n  4> X   5,000\n"
                                "  3> X   3,000\n  2> X   2,000\n  1> X   1,000\n";

} // namespace

class GameJourney : public Player
{
};

TEST_F(GameJourney, GoesUpToTheTopPrizeAndBackToTheStart)
{
    begin();
    toQuestion("Asha 2");
    std::string chosen;
    QStringList announced;
    const QRect narrow = desk->display->place(desk->windowOf("orv"));
    QRect wide;
    for (int n = 1; n <= 15; ++n) {
        EXPECT_EQ(says().mid(9, 1).toInt(), (n + 4) / 5) << "level of question " << n;
        chosen += choice(right());
        announced.append(win());
        if (n == 5)
            wide = desk->display->place(desk->windowOf("orv"));
        if (n < 15)
            next();
    }
    EXPECT_EQ(announced[0].toStdString(), "Total Prize Money Rs. 1,000");
    EXPECT_EQ(announced[4].toStdString(),
              "Total Prize Money Rs. 10,000\nNow you will definately take away Rs. 10,000 with you.");
    EXPECT_EQ(announced[9].toStdString(),
              "Total Prize Money Rs. 3,20,000\nNow you will definately take away Rs. 3,20,000 with you.");
    EXPECT_EQ(announced[13].toStdString(), "Total Prize Money Rs. 50,00,000");
    EXPECT_EQ(announced[14].toStdString(),
              "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");
    EXPECT_EQ(wide.width() - narrow.width(), 190);
    EXPECT_EQ(desk->look().text("orv", "stage").toStdString(), wholeLadder);

    desk->click("orv", "cmdok");
    EXPECT_EQ(desk->answer("OK").summary(), "Orvanta | Congrulations!!! Asha 2 | information | OK");
    EXPECT_EQ(desk->answer("OK").summary(), "Orvanta | You have won a crore Rupees! | information | OK");
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->until("the thanks alone", [](const Scene& scene) { return scene.screens() == "thank"; });
    desk->until("the start", [](const Scene& scene) { return scene.screens() == "userselect"; });
    desk->display->closeByManager(desk->windowOf("userselect"));
    EXPECT_EQ(desk->exitCode(), 0);

    QStringList expected = QString::fromStdString(chosen).split(' ', Qt::SkipEmptyParts);
    expected.sort();
    EXPECT_EQ(choices(), " " + expected.join(' ').toStdString());
}

TEST_F(GameJourney, PaysTheSafeStepAfterAWrongAnswer)
{
    begin();
    toQuestion("");
    winTo(5);
    next();
    const int k = right();
    const std::string correct =
        bank.value("select correct_answer from questions where question = '" + says().toStdString() + "'");
    const std::string before = choices();
    const std::string wrongChoice = choice(wrong());
    choose(wrong());
    const std::string question = says().toStdString();
    desk->answer("Yes");
    const Box sorry = desk->box();
    EXPECT_EQ(sorry.summary(), "Orvanta | Sorry!  But your Answer is wrong. The correct answer was " +
                                   correct + " | exclamation | OK");
    EXPECT_EQ(desk->look().at("orv").control("option" + QString::number(k)).background.toStdString(),
              "#00c000");
    EXPECT_EQ(says().toStdString(), question);
    desk->answer("OK");

    const Scene over = desk->until("the way out", [this](const Scene& scene) {
        return scene.at("orv").control("cmdokquit").focus && desk->hasKeyboard(scene.at("orv").window);
    });
    EXPECT_EQ(over.text("orv", "question").toStdString(), "Total Prize Money Rs. 10,000");
    EXPECT_TRUE(over.at("orv").control("eraseoptions").visible);
    EXPECT_FALSE(over.at("orv").control("LL").enabled);
    EXPECT_FALSE(over.at("orv").control("leave").enabled);
    EXPECT_FALSE(over.at("orv").timers.at("random"));
    EXPECT_EQ(choices().size(), before.size() + wrongChoice.size());

    desk->display->press(Display::Return);
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->until("the thanks alone", [](const Scene& scene) { return scene.screens() == "thank"; });
    EXPECT_NE((choices() + " ").find(wrongChoice + " "), std::string::npos);
}

TEST_F(GameJourney, CountsADeclinedChoiceAndLetsAPlayerWithdraw)
{
    begin();
    toQuestion();
    const std::string declined = choice(2);
    const Box lock = choose(2);
    EXPECT_TRUE(lock.summary() == "Orvanta | Guest shall I lock it? | no icon | No | Yes" ||
                lock.summary() == "Orvanta | Guest are you sure? | no icon | No | Yes")
        << lock.summary();
    EXPECT_EQ(desk->look().at("orv").control("option2").background.toStdString(), "#ff8080");
    desk->answer("No");
    const Scene again = desk->until("plain options", [](const Scene& scene) {
        return scene.at("orv").control("option2").background.isEmpty();
    });
    const QString question = again.text("orv", "question");
    desk->click("orv", "leave");
    EXPECT_EQ(desk->answer("No").summary(),
              "Orvanta | Guest, are you sure you want to leave | no icon | No | Yes");
    EXPECT_EQ(says(), question);
    desk->click("orv", "leave");
    desk->answer("Yes");
    const Scene over = desk->until("the way out", [this](const Scene& scene) {
        return scene.at("orv").control("cmdokquit").focus && desk->hasKeyboard(scene.at("orv").window);
    });
    EXPECT_EQ(over.text("orv", "question").toStdString(), "Total Prize Money Rs. 0");
    // The cover keeps a click from the option under it; what then follows would be a box over the farewell.
    desk->click("orv", "option1");
    desk->click("orv", "cmdokquit");
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->until("the thanks alone", [](const Scene& scene) { return scene.screens() == "thank"; });
    EXPECT_EQ(choices(), declined);
}

class ClosedFromOutside : public Player, public testing::WithParamInterface<bool>
{
};

TEST_P(ClosedFromOutside, EndsWithTheFarewell)
{
    begin();
    toQuestion();
    const Window game = desk->windowOf("orv");
    if (GetParam()) {
        choose(right());
        desk->answer("Yes");
        desk->until("the flashing", [](const Scene& scene) { return scene.at("orv").timers.at("flash"); });
    }
    desk->display->askToClose(game);
    const Box last = desk->box();
    EXPECT_EQ(last.summary(), farewell);
    EXPECT_TRUE(desk->look().shows("back"));
    // Asking again and again is the impatient player's way.
    desk->display->askToClose(game);
    desk->answer("OK");
    EXPECT_EQ(desk->exitCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(Game, ClosedFromOutside, testing::Bool(), [](const auto& test) {
    return std::string(test.param ? "WhileAnAnswerFlashes" : "WhileAQuestionIsOpen");
});

} // namespace desk
