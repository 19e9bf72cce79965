#include "support/stand.h"

namespace toolkit {

using namespace std::chrono_literals;

namespace {

/// A screen whose events are written down as they happen; what it does when it loads is given by the test.
class Page final : public Form
{
public:
    using Script = std::function<void()>;

    Page(const QString& name, Services services, QStringList& written, Script atLoad)
        : Form({.name = name, .width = 9030, .height = 6510}, services),
          log(written),
          load(std::move(atLoad)),
          first(button("first", {0, 0, 1500, 300}, "First", {.tab = 1})),
          second(button("second", {0, 600, 1500, 300}, "Second", {.tab = 0})),
          text(label("text", {0, 1200, 1500, 300}, "Text", {})),
          cover(shape("cover", {0, 1200, 700, 300}, {.cover = true})),
          beat(timer("beat", 100ms, true))
    {
        shape("frame", {0, 1200, 1500, 300}, {});
        controlsDone();
        cover->raise();
        onClick(first, [this] { log << "first"; });
        onClick(second, [this] { log << "second"; });
        onClick(text, [this] { log << "text"; });
        onGotFocus(first, [this] { log << "focus"; });
        onTick(beat, [this] { log << "tick"; });
        setDefaultButton(first);
    }
    ~Page() override { log << name() + " gone"; }

    using Form::focus;
    using Form::slide;

    QStringList& log;
    Script load;
    Button* first;
    Button* second;
    Label* text;
    Shape* cover;
    Timer* beat;

protected:
    void Form_Load() override
    {
        log << name() + " load";
        if (load)
            load();
        log << name() + " loaded";
    }
    void Form_Activate() override { log << name() + " activate"; }
    void Form_Unload() override { log << name() + " unload"; }
};

class ScreensTest : public testing::Test, protected support::Stand
{
protected:
    void add(const QString& name, const Page::Script& load = {}, const QString& behind = {})
    {
        screens.add(name, [=, this] { return std::make_unique<Page>(name, services, log, load); },
                    {.behind = behind});
    }
};

class FormTest : public ScreensTest
{
protected:
    FormTest()
    {
        add("page");
        screens.show("page");
        page = &static_cast<Page&>(form("page"));
        EXPECT_TRUE(QTest::qWaitForWindowActive(page));
        told();
    }

    Page* page;
};

} // namespace

TEST_F(FormTest, GotFocusMeansAMoveOfTheFocusNotAnActivationOfTheWindow)
{
    page->focus(page->second);
    page->focus(page->first);
    page->focus(page->first);
    EXPECT_EQ(told(), "focus");

    QWidget box(page, Qt::Dialog);
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    page->focus(page->second);
    page->focus(page->first);
    EXPECT_EQ(told(), "focus") << "told while a box has the keyboard";
    box.close();
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page));
    EXPECT_TRUE(page->first->hasFocus());
    EXPECT_EQ(told(), "");

    QTest::keyClick(page->first, Qt::Key_Tab);
    EXPECT_TRUE(page->second->hasFocus());
    QTest::keyClick(page->second, Qt::Key_Backtab);
    EXPECT_EQ(told(), "focus");
}

TEST_F(FormTest, EnterPressesTheFocusedButtonElseTheDefaultOne)
{
    page->focus(page->second);
    told();
    QTest::keyClick(page->second, Qt::Key_Return);
    page->second->clearFocus();
    QTest::keyClick(page, Qt::Key_Enter);
    page->first->setEnabled(false);
    QTest::keyClick(page, Qt::Key_Enter);
    EXPECT_EQ(told(), "second; first");
}

TEST_F(FormTest, ClicksGoThroughShapesButNotThroughACoverNorTwice)
{
    const auto clickAt = [&](QPoint place) {
        QWidget* hit = page->childAt(place);
        QTest::mouseClick(hit, Qt::LeftButton, {}, hit->mapFrom(page, place));
    };
    clickAt({90, 90});
    EXPECT_EQ(told(), "text");
    clickAt({10, 90});
    EXPECT_EQ(told(), "");
    page->cover->hide();
    clickAt({10, 90});
    QTest::mouseDClick(page->text, Qt::LeftButton);
    QTest::mouseRelease(page->text, Qt::LeftButton);
    EXPECT_EQ(told(), "text") << "the second press of a double click is none";
}

TEST_F(FormTest, ASlideComesBackToTheSamePlaceAndLetsNoTickOrPressIn)
{
    const TwipRect before = page->bounds();
    auto& beat = *page->beat;
    Timer reader(clock, 100ms);
    reader.onTick([this] { page->press(*page->second); });
    reader.setEnabled(true);
    page->slide({{570, {.left = -2.5}}, {1140, {.width = 2.5}}});
    reader.setEnabled(false);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(page->bounds(), (TwipRect{before.left - 1425, before.top, before.width + 2850, before.height}));
    EXPECT_EQ(page->minimumSize(), page->maximumSize());
    QCoreApplication::processEvents();
    EXPECT_EQ(told(), "tick") << "the tick that fell into the slide comes after it";
    EXPECT_TRUE(beat.isEnabled());
    page->slide({{1140, {.width = -2.5}}, {570, {.left = 2.5}}});
    EXPECT_EQ(page->bounds(), before);
    page->move(17, 23); // as by hand
    EXPECT_EQ(page->bounds(), (TwipRect{255, 345, before.width, before.height}));
}

TEST_F(FormTest, NothingRunsOnceTheFormIsClosed)
{
    Button* const first = page->first;
    screens.close("page");
    clock.advance(1s);
    first->click();
    EXPECT_EQ(told(), "page unload");
}

TEST_F(ScreensTest, AScreenIsOpenedOnceAndActivatedWhenAnotherWasActive)
{
    add("a");
    add("b");
    EXPECT_EQ(after("show a; show a"), "a load; a loaded; a activate");
    EXPECT_EQ(after("show b; show a"), "b load; b loaded; b activate; a activate");
    EXPECT_EQ(after("close b; close b; settle"), "b unload; a activate; b gone");
}

TEST_F(ScreensTest, AScreenThatIsShownWhileItLoadsBecomesVisibleButLoadsOnce)
{
    add(
        "game",
        [this] {
            run("show backdrop");
            EXPECT_TRUE(form("game").isVisible() && form("backdrop").isVisible());
        },
        "backdrop");
    add("backdrop", [this] { run("show game"); });
    EXPECT_EQ(after("show game"),
              "game load; backdrop load; game activate; backdrop loaded; backdrop activate; game loaded; "
              "game activate");
}

TEST_F(ScreensTest, AScreenThatClosesItselfWhileItLoadsStaysClosed)
{
    add("a", [this] { run("close a; show b"); });
    add("b");
    EXPECT_EQ(after("show a; settle"), "a load; a unload; b load; b loaded; b activate; a loaded; a gone");
    EXPECT_TRUE(!screens.find("a") && form("b").isVisible());
}

TEST_F(ScreensTest, TheProgramEndsWhenNoScreenIsOpenButNotBetweenCloseAndShow)
{
    add("a", [] { throw std::runtime_error("The disk is full."); });
    add("b");
    EXPECT_EQ(after("show a; settle"), "a load; Orvanta: (!) The disk is full.; a activate")
        << "a failure is told, and the program goes on";
    EXPECT_EQ(after("close a; show b; settle"), "a unload; b load; b loaded; b activate; a gone");
    form("b").close(); // as the window manager does
    EXPECT_EQ(after("settle"), "b unload; ended; b gone");
}

} // namespace toolkit
