#include "support/desk.h"

namespace toolkit {

namespace {

/// A screen whose events are given by the test and written down as they happen.
class Probe final : public Form
{
public:
    using Script = std::function<void()>;

    Probe(const QString& name, Services services, QStringList& log, Script load)
        : Form({.name = name, .width = 1500, .height = 1500}, services), log_(log), load_(std::move(load))
    {
    }
    ~Probe() override { log_ << name() + " gone"; }

protected:
    void Form_Load() override
    {
        log_ << name() + " load";
        if (load_)
            load_();
        log_ << name() + " loaded";
    }
    void Form_Activate() override { log_ << name() + " activate"; }
    void Form_Unload() override { log_ << name() + " unload"; }

private:
    QStringList& log_;
    Script load_;
};

class ScreensTest : public testing::Test
{
protected:
    void add(const QString& name, Probe::Script load = {}, const QString& behind = {})
    {
        desk.screens.add(name, [=, this] { return std::make_unique<Probe>(name, desk.services, log, load); },
                         {.behind = behind});
    }
    std::string takeLog()
    {
        const std::string text = log.join(", ").toStdString();
        log.clear();
        return text;
    }
    static void settle() { QTest::qWait(0); }

    QStringList log;
    support::Desk desk;
};

} // namespace

TEST_F(ScreensTest, AScreenIsOpenedOnceAndActivatedWhenAnotherWasActive)
{
    add("a");
    add("b");
    desk.screens.show("a");
    desk.screens.show("a");
    EXPECT_EQ(takeLog(), "a load, a loaded, a activate");
    desk.screens.show("b");
    desk.screens.show("a");
    EXPECT_EQ(takeLog(), "b load, b loaded, b activate, a activate");
    desk.screens.close("b");
    desk.screens.close("b");
    settle();
    EXPECT_EQ(takeLog(), "b unload, a activate, b gone");
    EXPECT_FALSE(desk.ended);
}

TEST_F(ScreensTest, AScreenThatIsShownWhileItLoadsBecomesVisibleButLoadsOnce)
{
    add(
        "game",
        [this] {
            desk.screens.show("backdrop");
            EXPECT_TRUE(desk.form("game").isVisible());
            EXPECT_TRUE(desk.form("backdrop").isVisible());
        },
        "backdrop");
    add("backdrop", [this] { desk.screens.show("game"); });
    desk.screens.show("game");
    EXPECT_EQ(takeLog(),
              "game load, backdrop load, game activate, backdrop loaded, backdrop activate, game loaded, "
              "game activate");
}

TEST_F(ScreensTest, AScreenThatClosesItselfWhileItLoadsStaysClosed)
{
    add("a", [this] {
        desk.screens.close("a");
        desk.screens.show("b");
    });
    add("b");
    desk.screens.show("a");
    EXPECT_EQ(desk.screens.find("a"), nullptr);
    EXPECT_TRUE(desk.form("b").isVisible());
    EXPECT_EQ(takeLog(), "a load, a unload, b load, b loaded, b activate, a loaded");
    settle();
    EXPECT_EQ(takeLog(), "a gone");
    EXPECT_FALSE(desk.ended);
}

TEST_F(ScreensTest, TheProgramEndsWhenNoScreenIsOpenButNotBetweenCloseAndShow)
{
    add("a");
    add("b");
    desk.screens.show("a");
    desk.screens.close("a");
    desk.screens.show("b");
    settle();
    EXPECT_FALSE(desk.ended);
    desk.form("b").close(); // as the window manager does
    EXPECT_EQ(desk.screens.find("b"), nullptr);
    settle();
    EXPECT_TRUE(desk.ended);
}

TEST_F(ScreensTest, AFailureInAHandlerBecomesABoxAndTheProgramGoesOn)
{
    add("a", [] { throw std::runtime_error("The disk is full."); });
    desk.dialogs.expectNotice("The disk is full.");
    desk.screens.show("a");
    EXPECT_TRUE(desk.form("a").isVisible());
}

} // namespace toolkit
