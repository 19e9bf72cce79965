#include "support/stand.h"

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
        stand.screens.add(name,
                          [=, this] { return std::make_unique<Probe>(name, stand.services, log, load); },
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
    support::Stand stand;
};

} // namespace

TEST_F(ScreensTest, AScreenIsOpenedOnceAndActivatedWhenAnotherWasActive)
{
    add("a");
    add("b");
    stand.screens.show("a");
    stand.screens.show("a");
    EXPECT_EQ(takeLog(), "a load, a loaded, a activate");
    stand.screens.show("b");
    stand.screens.show("a");
    EXPECT_EQ(takeLog(), "b load, b loaded, b activate, a activate");
    stand.screens.close("b");
    stand.screens.close("b");
    settle();
    EXPECT_EQ(takeLog(), "b unload, a activate, b gone");
    EXPECT_FALSE(stand.ended);
}

TEST_F(ScreensTest, AScreenThatIsShownWhileItLoadsBecomesVisibleButLoadsOnce)
{
    add(
        "game",
        [this] {
            stand.screens.show("backdrop");
            EXPECT_TRUE(stand.form("game").isVisible());
            EXPECT_TRUE(stand.form("backdrop").isVisible());
        },
        "backdrop");
    add("backdrop", [this] { stand.screens.show("game"); });
    stand.screens.show("game");
    EXPECT_EQ(takeLog(),
              "game load, backdrop load, game activate, backdrop loaded, backdrop activate, game loaded, "
              "game activate");
}

TEST_F(ScreensTest, AScreenThatClosesItselfWhileItLoadsStaysClosed)
{
    add("a", [this] {
        stand.screens.close("a");
        stand.screens.show("b");
    });
    add("b");
    stand.screens.show("a");
    EXPECT_EQ(stand.screens.find("a"), nullptr);
    EXPECT_TRUE(stand.form("b").isVisible());
    EXPECT_EQ(takeLog(), "a load, a unload, b load, b loaded, b activate, a loaded");
    settle();
    EXPECT_EQ(takeLog(), "a gone");
    EXPECT_FALSE(stand.ended);
}

TEST_F(ScreensTest, TheProgramEndsWhenNoScreenIsOpenButNotBetweenCloseAndShow)
{
    add("a");
    add("b");
    stand.screens.show("a");
    stand.screens.close("a");
    stand.screens.show("b");
    settle();
    EXPECT_FALSE(stand.ended);
    stand.form("b").close(); // as the window manager does
    EXPECT_EQ(stand.screens.find("b"), nullptr);
    settle();
    EXPECT_TRUE(stand.ended);
}

TEST_F(ScreensTest, AFailureInAHandlerBecomesABoxAndTheProgramGoesOn)
{
    add("a", [] { throw std::runtime_error("The disk is full."); });
    stand.dialogs.expectNotice("The disk is full.");
    stand.screens.show("a");
    EXPECT_TRUE(stand.form("a").isVisible());
}

} // namespace toolkit
