#include "shell/mainscreen.h"
#include "shell/rules.h"
#include "shell/thank.h"
#include "shell/userselect.h"
#include "support/stand.h"

#include <QCheckBox>

namespace shell {

using namespace std::chrono_literals;
using toolkit::Button;
using toolkit::Label;

namespace {

class ShellTest : public testing::Test, protected support::Stand
{
protected:
    ShellTest()
    {
        add<UserSelect>("userselect");
        add<MainScreen>("mainscreen");
        add<Rules>("rules");
        add<Thank>("thank");
        addPlain({"orv", "login"});
    }
    [[nodiscard]] QColor colour(const QString& name) const
    {
        return control<Label>("userselect", name).palette().windowText().color();
    }
};

} // namespace

TEST_F(ShellTest, TheWelcomeFadesInWith49TicksEachTimeTheScreenOpens)
{
    for (int time = 0; time < 2; ++time) {
        screens.show("userselect");
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 128));
        clock.advance(10ms);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 6));
        clock.advance(470ms);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 241));
        clock.advance(1s);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 246));
        EXPECT_FALSE(control<toolkit::Timer>("userselect", "Timer1").isEnabled());
        screens.close("userselect");
    }
}

TEST_F(ShellTest, LinksLightUpUntilTheMousePassesOverTheBackground)
{
    screens.show("userselect");
    const auto colours = [this] { return std::pair(colour("email"), colour("site")); };
    const QColor plain(192, 192, 255);
    const QColor lit(255, 255, 128);
    QTest::mouseMove(&control<Label>("userselect", "email"));
    EXPECT_EQ(colours(), std::pair(lit, plain));
    QTest::mouseMove(&control<Label>("userselect", "site"));
    EXPECT_EQ(colours(), std::pair(lit, lit));
    QTest::mouseMove(&form("userselect"), QPoint(3, 3));
    EXPECT_EQ(colours(), std::pair(plain, plain));

    const std::pair<const char*, QString> links[] = {{"email", "mailto:team@orvanta.example"},
                                                     {"site", "www.orvanta.example"}};
    for (const auto& [link, address] : links) {
        browser.works = true;
        EXPECT_EQ(after(link, "userselect"), "");
        EXPECT_EQ(browser.visited.takeLast(), address);
        browser.works = false;
        EXPECT_EQ(after(link, "userselect"), "Orvanta: (i) No program on this desktop opens " +
                                                 shown("userselect", link) +
                                                 ". You can type the address where you would use it.");
    }
}

TEST_F(ShellTest, EveryMoveClosesItsScreenAndShowsTheNext)
{
    // The screen, what is done on it, where it leads.
    const std::tuple<QString, const char*, const char*> moves[] = {
        {"userselect", "contestant", "mainscreen"},
        {"mainscreen", "Command1", "rules"},
        {"rules", "startplay", "orv"},
        {"userselect", "administrator", "login"},
        {"thank", "5000ms", "userselect"},
    };
    for (const auto& [screen, step, next] : moves) {
        run("show " + screen + "; 4999ms");
        EXPECT_EQ(open(), screen.toStdString());
        run(step, screen);
        EXPECT_EQ(open(), next);
        screens.close(next);
    }
}

TEST_F(ShellTest, ConsentIsEitherGivenOrRefusedOrOpen)
{
    screens.show("rules");
    const auto state = [this] {
        return QString("%1%2%3")
            .arg(control<QCheckBox>("rules", "accept").isChecked())
            .arg(control<QCheckBox>("rules", "reject").isChecked())
            .arg(control<Button>("rules", "startplay").isEnabled());
    };
    meanwhile = [&] { log << state(); };
    const std::tuple<const char*, const char*, const char*> clicks[] = {
        {"", "101", ""},
        {"accept", "000", ""},
        {"accept", "101", ""},
        {"reject:n", "000", "Orvanta: Are you sure you don't want to play; 010"},
        {"accept", "101", ""}};
    for (const auto& [click, left, box] : clicks) {
        EXPECT_EQ(after(click, "rules"), box);
        EXPECT_EQ(state(), left);
    }
    EXPECT_EQ(after("reject:y", "rules"), "Orvanta: Are you sure you don't want to play");
    EXPECT_EQ(open(), "thank");
}

} // namespace shell
