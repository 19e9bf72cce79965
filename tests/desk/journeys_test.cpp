#include "player.h"

#include <QDir>

#include <algorithm>

namespace desk {

using Journey = Player;

/// Who has nothing but a keyboard; the mouse lies in a corner.
TEST_F(Journey, LeadsFromTheFirstScreenToTheLastAndBackByKeyboardAlone)
{
    begin();
    toQuestion("Asha 2");
    type("orv", "h");
    EXPECT_TRUE(desk->answer("\r").text.contains("W: withdraw"));
    take(1);
    for (const bool byMark : {true, false}) {
        const int k = right();
        for (int step = 0; byMark && step < k; ++step)
            type("orv", QString(rightKey));
        type("orv", byMark ? '\r' : QChar('a' + k - 1));
        desk->box();
        desk->display->type("w"); // which the box does not let through
        EXPECT_EQ(desk->answer("\r").text, "Asha 2 shall I lock it?");
        desk->untilFocus("orv", "cmdok");
        type("orv", "\r");
        untilQuestion();
    }
    type("orv", "w");
    EXPECT_EQ(desk->answer("\r").text, "Asha 2, are you sure you want to leave");
    desk->untilFocus("orv", "cmdokquit");
    EXPECT_EQ(says(), "Total Prize Money Rs. 2,000");
    type("orv", "\r");
    EXPECT_EQ(desk->answer("\r").summary(), farewell);
    desk->untilOnly("thank");
    desk->untilOnly("userselect");
    desk->display->askToClose(desk->windowOf("userselect"));
    EXPECT_EQ(desk->exitCode(), 0);
    EXPECT_EQ(choices(), 2);
}

TEST_F(Journey, TimeRunsOutOverAnOpenLockPrompt)
{
    begin();
    toQuestion();
    take(2);
    const ShownWindow lock = choose(right());
    desk->until("the fourth second",
                [](const Scene& scene) { return scene.control("orv", "clock").text == " 4"; });
    const Scene two = desk->until("the second box", [&](const Scene& scene) {
        return std::ranges::count(scene.windows, "box", &ShownWindow::name) == 2;
    });
    const ShownWindow over = *std::ranges::find_if(two.windows, [&](const ShownWindow& window) {
        return window.name == "box" && window.window != lock.window;
    });
    EXPECT_EQ(over.summary(), "Orvanta | Guest, your Time Is Over ! | information | OK");
    desk->untilKeyboard(over.window);
    EXPECT_GT(desk->display->height(over.window), desk->display->height(lock.window));
    desk->display->type("\r");
    desk->untilKeyboard(lock.window);
    desk->answer("Yes");
    desk->untilFocus("orv", "cmdok");
    EXPECT_EQ(says(), "Total Prize Money Rs. 1,000");
}

TEST_F(Journey, OpensTheLinksOutside)
{
    begin();
    const QByteArray mail = "mailto:team@orvanta.example\n";
    desk->click("userselect", "email");
    desk->until("the mail address", [&](const Scene&) { return desk->opened() == mail; });
    desk->click("userselect", "site");
    desk->until("the web address",
                [&](const Scene&) { return desk->opened() == mail + "https://www.orvanta.example\n"; });
    desk->openNoMore();
    desk->click("userselect", "email"); // the other one, or it would be a double click
    EXPECT_NE(desk->answer("OK").text.indexOf("team@orvanta.example"), -1);
}

TEST_F(Journey, FillsItsScreenUnlessTheUserHasChosenAScale)
{
    for (const auto& [scale, size] : {std::pair("1.5", QSize(903, 651)), std::pair("", QSize(753, 543))}) {
        begin({.screen = {1920, 1080}, .scale = scale});
        toQuestion();
        EXPECT_EQ(desk->display->place(desk->windowOf("orv")).size(), size) << scale;
    }
}

TEST_F(Journey, SaysInOneSentenceThatThereIsNoDisplay)
{
    for (const char* display : {"", ":4321", "nowhere:0.0"}) {
        QProcessEnvironment environment;
        environment.insert("PATH", qEnvironmentVariable("PATH"));
        environment.insert("DISPLAY", display);
        Process program(DESK_PROGRAM, {}, environment, QFileInfo(bank.path()).path());
        ASSERT_TRUE(program.waitForFinished(20'000)) << display;
        EXPECT_EQ(program.exitCode(), 1) << display;
        EXPECT_EQ(
            program.printed().toStdString(),
            "Orvanta cannot start: there is no display to show it on. Start it from a graphical desktop.\n")
            << display;
        EXPECT_EQ(names(), files) << display;
    }
}

} // namespace desk
