#include "support/stand.h"

namespace toolkit {

using namespace std::chrono_literals;

namespace {

class Page final : public Form
{
public:
    explicit Page(Services services)
        : Form({.name = "page", .width = 9030, .height = 6510}, services),
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
        onGotFocus(second, [this] { log << "focus"; });
        onTick(beat, [this] { log << "tick"; });
        setDefaultButton(first);
    }

    using Form::focus;
    using Form::slide;

    std::string takeLog()
    {
        const std::string taken = log.join(" ").toStdString();
        log.clear();
        return taken;
    }

    QStringList log;
    Button* first;
    Button* second;
    Label* text;
    Shape* cover;
    Timer* beat;
};

class FormTest : public testing::Test
{
protected:
    FormTest()
    {
        stand.screens.add("page", [this] { return std::make_unique<Page>(stand.services); });
        stand.screens.show("page");
        page = &static_cast<Page&>(stand.form("page"));
        EXPECT_TRUE(QTest::qWaitForWindowActive(page));
        page->takeLog();
    }

    support::Stand stand;
    Page* page;
};

} // namespace

TEST_F(FormTest, GotFocusMeansAMoveOfTheFocusNotAnActivationOfTheWindow)
{
    page->focus(page->first);
    page->focus(page->second);
    page->focus(page->second);
    EXPECT_EQ(page->takeLog(), "focus");

    QWidget box(page, Qt::Dialog);
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    page->focus(page->first);
    page->focus(page->second);
    EXPECT_EQ(page->takeLog(), "focus") << "told while a box has the keyboard";
    box.close();
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page));
    EXPECT_TRUE(page->second->hasFocus());
    EXPECT_EQ(page->takeLog(), "");

    QTest::keyClick(page->second, Qt::Key_Tab);
    EXPECT_TRUE(page->first->hasFocus());
    QTest::keyClick(page->first, Qt::Key_Backtab);
    EXPECT_EQ(page->takeLog(), "focus");
}

TEST_F(FormTest, EnterPressesTheFocusedButtonElseTheDefaultOne)
{
    page->focus(page->second);
    page->takeLog();
    QTest::keyClick(page->second, Qt::Key_Return);
    page->second->clearFocus();
    QTest::keyClick(page, Qt::Key_Enter);
    page->first->setEnabled(false);
    QTest::keyClick(page, Qt::Key_Enter);
    EXPECT_EQ(page->takeLog(), "second first");
}

TEST_F(FormTest, ClicksGoThroughShapesButNotThroughACover)
{
    const auto clickAt = [&](QPoint place) {
        QWidget* hit = page->childAt(place);
        QTest::mouseClick(hit, Qt::LeftButton, {}, hit->mapFrom(page, place));
    };
    clickAt({90, 90});
    EXPECT_EQ(page->takeLog(), "text");
    clickAt({10, 90});
    EXPECT_EQ(page->takeLog(), "");
    page->cover->hide();
    clickAt({10, 90});
    EXPECT_EQ(page->takeLog(), "text");
}

TEST_F(FormTest, TheSecondPressOfADoubleClickIsNoClickOfALabel)
{
    QTest::mouseClick(page->text, Qt::LeftButton);
    QTest::mouseDClick(page->text, Qt::LeftButton);
    QTest::mouseRelease(page->text, Qt::LeftButton);
    EXPECT_EQ(page->takeLog(), "text");
}

TEST_F(FormTest, ASlideComesBackToTheSamePlaceAndLetsNoTickIn)
{
    const TwipRect before = page->bounds();
    auto& beat = *page->beat;
    page->slide({{570, {.left = -2.5}}, {1140, {.width = 2.5}}});
    EXPECT_EQ(page->takeLog(), "");
    EXPECT_EQ(page->bounds(), (TwipRect{before.left - 1425, before.top, before.width + 2850, before.height}));
    EXPECT_EQ(page->minimumSize(), page->maximumSize());
    QCoreApplication::processEvents();
    EXPECT_EQ(page->takeLog(), "tick") << "the tick that fell into the slide comes after it";
    EXPECT_TRUE(beat.isEnabled());
    page->slide({{1140, {.width = -2.5}}, {570, {.left = 2.5}}});
    EXPECT_EQ(page->bounds(), before);
}

TEST_F(FormTest, BoundsFollowAWindowThatWasMovedByHand)
{
    const TwipRect before = page->bounds();
    page->move(17, 23);
    EXPECT_EQ(page->bounds(), (TwipRect{255, 345, before.width, before.height}));
}

TEST_F(FormTest, NothingRunsOnceTheFormIsClosed)
{
    Button* const first = page->first;
    stand.screens.close("page");
    stand.clock.advance(1s);
    first->click();
    EXPECT_EQ(page->takeLog(), "");
}

} // namespace toolkit
