#include "game/orv.h"
#include "shell/back.h"
#include "shell/mainscreen.h"
#include "shell/rules.h"
#include "shell/thank.h"
#include "shell/userselect.h"
#include "support/bank.h"
#include "support/stand.h"
#include "toolkit/reach.h"

#include <QAccessible>
#include <QCheckBox>
#include <QScrollBar>

#include <set>

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
            stand.screens.add(name, [this, name] {
                return std::make_unique<Form>(toolkit::FormSettings{.name = name}, stand.services);
            });
        }
    }
    template <typename Screen>
    void add(const QString& name)
    {
        stand.screens.add(name, [this] { return std::make_unique<Screen>(stand.services); });
    }
    QColor colour(const QString& name)
    {
        return stand.control<Label>("userselect", name).palette().windowText().color();
    }
    /// Goes over all that a screen shows.
    void walk(const QString& screen)
    {
        toolkit::Form& form = stand.form(screen);
        QAccessibleInterface& root = *QAccessible::queryAccessibleInterface(&form);
        EXPECT_NE(root.text(QAccessible::Name), "") << screen.toStdString();
        std::set<const QObject*> reached;
        for (int tab = 0; tab < 30 && form.focusWidget(); ++tab) {
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
            reached.insert(form.focusWidget());
        }
        for (int i = 0; i < root.childCount(); ++i)
            lookAt(*root.child(i), form.rect(), reached);
    }
    static void lookAt(QAccessibleInterface& told, const QRect& window,
                       const std::set<const QObject*>& reached)
    {
        const auto& control = *qobject_cast<QWidget*>(told.object());
        const QAccessible::State state = told.state();
        const QAccessible::Role role = told.role();
        if (state.invisible || !toolkit::isInView(control))
            return;
        const QString name = told.text(QAccessible::Name);
        const std::string which = (control.objectName() + ' ' + name).toStdString();
        const bool isText = role == QAccessible::StaticText || role == QAccessible::Notification;
        EXPECT_TRUE(!name.isEmpty() && role != QAccessible::NoRole && role != QAccessible::Client) << which;
        EXPECT_TRUE(isText || state.disabled || reached.contains(&control)) << which << ": not by Tab";
        EXPECT_TRUE(window.adjusted(-1, -1, 1, 1).contains(control.geometry())) << which << ": cut";
        for (const auto* bar : control.findChildren<QScrollBar*>())
            EXPECT_TRUE(bar->isVisible() || bar->maximum() == 0) << which << ": has more to show";
        if (const auto* const label = dynamic_cast<const Label*>(&control)) {
            const int flags = static_cast<int>(label->alignment()) | Qt::TextWordWrap;
            EXPECT_EQ(toolkit::fitted(label->text(), label->font(), label->size(), flags).text,
                      label->text());
        }
    }
    void move(const QString& name) { QTest::mouseMove(&stand.control<QWidget>("userselect", name)); }

    support::Bank bank;
    support::Stand stand;
};

} // namespace

TEST_F(ShellTest, TheWelcomeFadesInWith49TicksEachTimeTheScreenOpens)
{
    for (int time = 0; time < 2; ++time) {
        stand.screens.show("userselect");
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 128));
        stand.clock.advance(10ms);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 6));
        stand.clock.advance(470ms);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 241));
        stand.clock.advance(1s);
        EXPECT_EQ(colour("welcome"), QColor(0, 0, 246));
        EXPECT_FALSE(stand.control<toolkit::Timer>("userselect", "Timer1").isEnabled());
        stand.screens.close("userselect");
    }
}

TEST_F(ShellTest, LinksLightUpUntilTheMousePassesOverTheBackground)
{
    stand.screens.show("userselect");
    const QColor plain(192, 192, 255);
    const QColor lit(255, 255, 128);
    move("email");
    EXPECT_EQ(colour("email"), lit);
    EXPECT_EQ(colour("site"), plain);
    move("site");
    EXPECT_EQ(colour("email"), lit);
    EXPECT_EQ(colour("site"), lit);
    QTest::mouseMove(&stand.form("userselect"), QPoint(3, 3));
    EXPECT_EQ(colour("email"), plain);
    EXPECT_EQ(colour("site"), plain);

    stand.click("userselect", "email");
    stand.click("userselect", "site");
    EXPECT_EQ(stand.browser.visited,
              QStringList({"mailto:" + stand.text("userselect", "email"), stand.text("userselect", "site")}));
    stand.browser.works = false;
    for (const char* link : {"email", "site"}) {
        stand.dialogs.expectNoticeWith({"No program", stand.text("userselect", link)});
        stand.click("userselect", link);
    }
}

TEST_F(ShellTest, EveryMoveClosesItsScreenAndShowsTheNext)
{
    stand.screens.show("userselect");
    EXPECT_EQ(stand.focused("userselect"), "contestant");
    stand.click("userselect", "contestant");
    EXPECT_EQ(stand.open(), "mainscreen");
    EXPECT_EQ(stand.text("mainscreen", "title"), "Welcome to the Biggest Game Show Ever\nOrvanta");
    stand.click("mainscreen", "Command1");
    EXPECT_EQ(stand.open(), "rules");
    EXPECT_EQ(stand.focused("rules"), "startplay");
    stand.click("rules", "startplay");
    EXPECT_EQ(stand.open(), "orv");
    stand.screens.close("orv");

    stand.screens.show("userselect");
    stand.click("userselect", "administrator");
    EXPECT_EQ(stand.open(), "login");
    stand.screens.close("login");

    stand.screens.show("thank");
    stand.clock.advance(4999ms);
    EXPECT_EQ(stand.open(), "thank");
    stand.clock.advance(1ms);
    EXPECT_EQ(stand.open(), "userselect");
}

TEST_F(ShellTest, ConsentIsEitherGivenOrRefusedOrOpen)
{
    stand.screens.show("rules");
    auto& accept = stand.control<QCheckBox>("rules", "accept");
    auto& reject = stand.control<QCheckBox>("rules", "reject");
    auto& startplay = stand.control<Button>("rules", "startplay");
    const auto state = [&] {
        return QString("%1%2%3").arg(accept.isChecked()).arg(reject.isChecked()).arg(startplay.isEnabled());
    };
    const QString question = "Are you sure you don't want to play";

    EXPECT_EQ(state(), "101");
    accept.click();
    EXPECT_EQ(state(), "000");
    accept.click();
    EXPECT_EQ(state(), "101");
    stand.dialogs.expectConfirm(question, false, [&] { EXPECT_EQ(state(), "010"); });
    reject.click();
    EXPECT_EQ(state(), "000");
    accept.click();
    EXPECT_EQ(state(), "101");
    stand.dialogs.expectConfirm(question, true);
    reject.click();
    EXPECT_EQ(stand.open(), "thank");
}

TEST_F(ShellTest, NothingShownIsNamelessOutOfReachOrCut)
{
    for (const char* screen : {"userselect", "mainscreen", "rules", "thank"}) {
        stand.screens.show(screen);
        walk(screen);
        stand.screens.close(screen);
    }
    const auto makeHost = [this](QWidget&) {
        return std::make_unique<support::RecordingHost>(stand.hostRequests, false);
    };
    add<Back>("back");
    stand.screens.add("orv", [&] { return std::make_unique<game::Orv>(stand.services, makeHost); });
    stand.dialogs.otherwise = [this](const auto&) { return walk("orv"), "Asha"; };
    stand.screens.show("orv");
    walk("back");
    for (const char* control :
         {"LL", "mws", "lifeline1", "lifeline2", "lifeline3", "option3", "cmdok", "leave", "cmdokquit"}) {
        stand.click("orv", control);
        stand.clock.advance(1s);
        if (stand.open() == "back orv")
            walk("orv");
    }
    EXPECT_EQ(stand.open(), "thank");
}

} // namespace shell
