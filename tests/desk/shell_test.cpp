#include "player.h"

#include <QDir>

namespace desk {

using ShellJourney = Player;

TEST_F(ShellJourney, OpensTheLinksOutside)
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

TEST_F(ShellJourney, FillsItsScreenUnlessTheUserHasChosenAScale)
{
    for (const auto& [scale, size] : {std::pair("1.5", QSize(903, 651)), std::pair("", QSize(753, 543))}) {
        begin({.screen = {1920, 1080}, .scale = scale});
        toQuestion();
        EXPECT_EQ(desk->display->place(desk->windowOf("orv")).size(), size) << scale;
    }
}

TEST_F(ShellJourney, SaysInOneSentenceThatThereIsNoDisplay)
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
