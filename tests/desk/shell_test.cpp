#include "player.h"

#include <QDir>

namespace desk {

using namespace std::chrono_literals;

class ShellJourney : public Player
{
};

TEST_F(ShellJourney, TakesBackAndConfirmsARejectionOfTheRules)
{
    begin();
    toRules();
    const auto boxes = [&](bool accept, bool reject, bool start) {
        return [=](const Scene& scene) {
            const ShownWindow* rules = scene.find("rules");
            return rules != nullptr && rules->control("accept").checked == accept &&
                   rules->control("reject").checked == reject && rules->control("startplay").enabled == start;
        };
    };
    desk->click("rules", "accept");
    desk->until("no consent and no start", boxes(false, false, false));
    desk->display->press(Display::Return);
    desk->click("rules", "accept");
    desk->until("consent and start", boxes(true, false, true));
    desk->click("rules", "reject");
    EXPECT_EQ(desk->answer("No").summary(),
              "Orvanta | Are you sure you don't want to play | no icon | No | Yes");
    desk->until("neither box checked", boxes(false, false, false));
    desk->click("rules", "reject");
    desk->box();
    desk->until("the rejection", boxes(false, true, false));
    desk->answer("Yes");
    desk->until("the thanks alone", [](const Scene& scene) { return scene.screens() == "thank"; });
    desk->until("the start", [](const Scene& scene) { return scene.screens() == "userselect"; });
    EXPECT_EQ(choices(), "");
}

TEST_F(ShellJourney, OpensTheLinksOutside)
{
    begin();
    const auto lit = [&](const char* link, const char* colour) {
        const QRect place = desk->look().at("userselect").control(link).place;
        const QPoint corner = desk->display->place(desk->windowOf("userselect")).topLeft();
        const QImage seen = desk->display->picture(place.translated(corner));
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                if (seen.pixelColor(x, y).name() == colour)
                    return true;
            }
        }
        return false;
    };
    desk->click("userselect", "email");
    desk->until("the mail address", [&](const Scene&) {
        return desk->opened() == "mailto:team@orvanta.example\n" && lit("email", "#ffff80");
    });
    desk->click("userselect", "site");
    desk->until("the web address", [&](const Scene&) {
        return desk->opened() == "mailto:team@orvanta.example\nwww.orvanta.example\n" &&
               lit("site", "#ffff80");
    });
    EXPECT_TRUE(lit("email", "#ffff80")) << "the mouse has not been over the ground since";
    desk->display->moveTo(desk->aim("userselect", "usertype") + QPoint(0, 30));
    desk->until("plain links",
                [&](const Scene&) { return !lit("email", "#ffff80") && !lit("site", "#ffff80"); });
}

TEST_F(ShellJourney, StartsOnADesktopOfAnotherScale)
{
    begin({.screen = {1920, 1080}, .scale = "1.5"});
    toQuestion();
    EXPECT_EQ(desk->display->place(desk->windowOf("orv")).size(), QSize(903, 651));
    EXPECT_TRUE(says().startsWith("Question 1.")) << says().toStdString();
}

TEST_F(ShellJourney, SaysInOneSentenceThatThereIsNoDisplay)
{
    for (const char* display : {"", ":4321", "nowhere:0.0"}) {
        QProcessEnvironment environment;
        environment.insert("PATH", qEnvironmentVariable("PATH"));
        environment.insert("DISPLAY", display);
        Process program(Command{
            .program = DESK_PROGRAM, .environment = environment, .directory = QFileInfo(bank.path()).path()});
        ASSERT_TRUE(program.ended(20s)) << display;
        EXPECT_EQ(program.exitCode(), 1) << display;
        EXPECT_EQ(program.standardOutput().toStdString(), "") << display;
        EXPECT_EQ(
            program.standardError().toStdString(),
            "Orvanta cannot start: there is no display to show it on. Start it from a graphical desktop.\n")
            << display;
        EXPECT_EQ(names(), files) << display;
    }
}

} // namespace desk
