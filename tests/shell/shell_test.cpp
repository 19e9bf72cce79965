#include "shell/mainscreen.h"
#include "shell/rules.h"
#include "shell/thank.h"
#include "shell/userselect.h"
#include "support/desk.h"

#include <QCheckBox>

namespace shell {

using namespace std::chrono_literals;
using toolkit::Button;
using toolkit::Form;
using toolkit::Label;

namespace {

class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        add<UserSelect>("userselect");
        add<MainScreen>("mainscreen");
        add<Rules>("rules");
        add<Thank>("thank");
        for (const char* name : {"orv", "login"}) {
            desk.screens.add(name, [this, name] {
                return std::make_unique<Form>(toolkit::FormSettings{.name = name}, desk.services);
            });
        }
    }
    template <typename Screen>
    void add(const QString& name)
    {
        desk.screens.add(name, [this] { return std::make_unique<Screen>(desk.services); });
    }
    QColor colour(const QString& name)
    {
        return desk.control<Label>("userselect", name).palette().windowText().color();
    }
    void move(const QString& name) { QTest::mouseMove(&desk.control<QWidget>("userselect", name)); }

    support::Desk desk;
};

} // namespace

TEST_F(ShellTest, TheWelcomeFadesInWith49TicksEachTimeTheScreenOpens)
{
    for (int time = 0; time < 2; ++time) {
        desk.screens.show("userselect");
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 128));
        desk.clock.advance(10ms);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 6));
        desk.clock.advance(470ms);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 241));
        desk.clock.advance(1s);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 246));
        EXPECT_FALSE(desk.control<toolkit::Timer>("userselect", "Timer1").isEnabled());
        desk.screens.close("userselect");
    }
}

TEST_F(ShellTest, LinksLightUpUntilTheMousePassesOverTheBackground)
{
    desk.screens.show("userselect");
    const QColor plain(192, 192, 255);
    const QColor lit(255, 255, 128);
    move("email");
    EXPECT_EQ(colour("email"), lit);
    EXPECT_EQ(colour("site"), plain);
    move("site");
    EXPECT_EQ(colour("email"), lit);
    EXPECT_EQ(colour("site"), lit);
    QTest::mouseMove(&desk.form("userselect"), QPoint(3, 3));
    EXPECT_EQ(colour("email"), plain);
    EXPECT_EQ(colour("site"), plain);

    desk.click("userselect", "email");
    desk.click("userselect", "site");
    EXPECT_EQ(desk.browser.visited,
              QStringList({"mailto:" + desk.text("userselect", "email"), desk.text("userselect", "site")}));
    desk.browser.works = false;
    for (const char* link : {"email", "site"}) {
        desk.dialogs.expectNoticeWith({"No program", desk.text("userselect", link)});
        desk.click("userselect", link);
    }
}

TEST_F(ShellTest, EveryMoveClosesItsScreenAndShowsTheNext)
{
    desk.screens.show("userselect");
    EXPECT_EQ(desk.form("userselect").focusWidget()->objectName(), "contestant");
    desk.click("userselect", "contestant");
    EXPECT_EQ(desk.open(), "mainscreen");
    EXPECT_EQ(desk.text("mainscreen", "title"), "Welcome to the Biggest Game Show Ever\nOrvanta");
    desk.click("mainscreen", "Command1");
    EXPECT_EQ(desk.open(), "rules");
    EXPECT_EQ(desk.form("rules").focusWidget()->objectName(), "startplay");
    desk.click("rules", "startplay");
    EXPECT_EQ(desk.open(), "orv");
    desk.screens.close("orv");

    desk.screens.show("userselect");
    desk.click("userselect", "administrator");
    EXPECT_EQ(desk.open(), "login");
    desk.screens.close("login");

    desk.screens.show("thank");
    desk.clock.advance(4999ms);
    EXPECT_EQ(desk.open(), "thank");
    desk.clock.advance(1ms);
    EXPECT_EQ(desk.open(), "userselect");
}

TEST_F(ShellTest, ConsentIsEitherGivenOrRefusedOrOpen)
{
    desk.screens.show("rules");
    auto& accept = desk.control<QCheckBox>("rules", "accept");
    auto& reject = desk.control<QCheckBox>("rules", "reject");
    auto& startplay = desk.control<Button>("rules", "startplay");
    const auto state = [&] {
        return QString("%1%2%3").arg(accept.isChecked()).arg(reject.isChecked()).arg(startplay.isEnabled());
    };
    const QString question = "Are you sure you don't want to play";

    EXPECT_EQ(state(), "101");
    accept.click();
    EXPECT_EQ(state(), "000");
    accept.click();
    EXPECT_EQ(state(), "101");
    desk.dialogs.expectConfirm(question, false, [&] { EXPECT_EQ(state(), "010"); });
    reject.click();
    EXPECT_EQ(state(), "000");
    accept.click();
    EXPECT_EQ(state(), "101");
    desk.dialogs.expectConfirm(question, true);
    reject.click();
    EXPECT_EQ(desk.open(), "thank");
}

} // namespace shell
