#include "player.h"

#include <algorithm>

namespace desk {

namespace {

/// A part of the form that a bar slides into view.
struct Panel
{
    const char* bar;
    const char* inside; ///< a control of the panel
};

constexpr Panel lifelines{"LL", "lifeline1"};
constexpr Panel ladder{"mws", "stage"};

const QColor ground(0, 0, 64);
const QColor barColour(255, 255, 192);

QString numbered(const char* name, int n)
{
    return QStringLiteral("%1%2").arg(name).arg(n);
}

QString indexed(const char* name, int index)
{
    return QStringLiteral("%1[%2]").arg(name).arg(index);
}

bool isOpen(const Panel& panel, const Scene& scene, const QRect& form)
{
    return QRect(QPoint(), form.size()).contains(scene.at("orv").control(panel.inside).place);
}

/// Which of the six lines over the lifelines show: "XX..X.".
std::string crosses(const Scene& scene)
{
    std::string result;
    for (const char* line : {"l1l1", "l1l2", "l2l1", "l2l2", "l3l1", "l3l2"})
        result += scene.at("orv").control(line).visible ? 'X' : '.';
    return result;
}

/// The letters of the options that still have a text.
std::string offered(const Scene& scene)
{
    std::string result;
    for (int k = 1; k <= 4; ++k) {
        if (!scene.text("orv", numbered("option", k)).isEmpty())
            result += " ABCD"[k];
    }
    return result;
}

/// All that the form shows, one control a line; without the digits of the running clock.
std::string contents(const Scene& scene)
{
    QStringList lines;
    for (const auto& [name, control] : scene.at("orv").controls) {
        const QRect place = control.place;
        lines << QStringLiteral("%1 %2 %3 %4 %5,%6 %7x%8 %9")
                     .arg(name, control.visible ? "shown" : "hidden", control.enabled ? "on" : "off",
                          control.background)
                     .arg(place.x())
                     .arg(place.y())
                     .arg(place.width())
                     .arg(place.height())
                     .arg(name == "clock" ? QString() : control.text);
    }
    return lines.join('\n').toStdString();
}

} // namespace

class LifelineJourney : public Player
{
protected:
    /// Where the form stands once no slide moves it.
    QRect standing()
    {
        const Window form = desk->windowOf("orv");
        QRect place;
        int looks = 0;
        desk->until("the form at rest", [&](const Scene&) {
            const QRect now = desk->display->place(form);
            looks = now == std::exchange(place, now) ? looks + 1 : 0;
            return looks >= 8;
        });
        return place;
    }

    /// Has a panel open or closed; returns where the form then stands. A prompt of the host may open one at
    /// any moment, also while the mouse is on its way.
    QRect have(const Panel& panel, bool open)
    {
        for (int attempt = 0; attempt < 5; ++attempt) {
            const QRect place = standing();
            if (isOpen(panel, desk->look(), place) == open)
                return place;
            desk->click("orv", panel.bar);
            desk->until("a slide", [&](const Scene& scene) {
                return desk->display->place(scene.at("orv").window) != place;
            });
        }
        throw std::runtime_error(std::string(panel.bar) + " does not do what it is clicked for");
    }

    QRect haveBothClosed()
    {
        for (int attempt = 0; attempt < 5; ++attempt) {
            have(lifelines, false);
            const QRect place = have(ladder, false);
            if (!isOpen(lifelines, desk->look(), place))
                return place;
        }
        throw std::runtime_error("the panels do not stay closed");
    }

    /// The colour on the screen at a point of a control, from the control's top left corner.
    QColor colourAt(const QString& control, QPoint point)
    {
        const ShownWindow form = desk->look().at("orv");
        const QPoint corner = desk->display->place(form.window).topLeft();
        const QPoint seen = corner + form.control(control).place.topLeft() + point;
        return desk->display->picture({seen, QSize(1, 1)}).pixelColor(0, 0);
    }
    void expectColour(const QString& control, QPoint point, const QColor& colour)
    {
        EXPECT_NO_THROW(
            desk->until("paint", [&](const Scene&) { return colourAt(control, point) == colour; }))
            << control.toStdString() << " is " << colourAt(control, point).name().toStdString() << ", not "
            << colour.name().toStdString();
    }

    Scene untilCrossed(int n)
    {
        return desk->until(numbered("the cross over lifeline ", n).toStdString(),
                           [n](const Scene& scene) { return crosses(scene).substr((n - 1) * 2, 2) == "XX"; });
    }

    /// Takes lifeline n for the first time, from the open panel, and looks for its red cross.
    Scene take(int n)
    {
        const QString label = numbered("lifeline", n);
        desk->click("orv", label);
        Scene scene = untilCrossed(n);
        expectColour(label, QRect({}, scene.at("orv").control(label).place.size()).center(), Qt::red);
        return scene;
    }

    /// The bars that show, with their percentages and heights: "B 38% 38, C 62% 62".
    std::string chart()
    {
        const ShownWindow form = desk->look().at("orv");
        QStringList bars;
        for (int i = 0; i < 4; ++i) {
            const Control& bar = form.control(indexed("pollbar", i));
            const Control& percent = form.control(indexed("pollpercent", i));
            EXPECT_EQ(bar.visible, percent.visible);
            if (!bar.visible)
                continue;
            bars << QStringLiteral("%1 %2 %3").arg("ABCD"[i]).arg(percent.text).arg(bar.place.height());
            expectColour(indexed("pollbar", i), {bar.place.width() / 2, bar.place.height() - 4}, barColour);
        }
        return bars.join(", ").toStdString();
    }
    /// The part of the chart where the first bar begins, which is covered while no poll is shown.
    void expectCoveredChart()
    {
        EXPECT_TRUE(desk->look().at("orv").control("hidepoll").visible);
        expectColour("hidepoll", {30, 118}, ground);
    }
};

TEST_F(LifelineJourney, PanelsSlideOnTheScreenAndBackToTheSamePlace)
{
    begin();
    toQuestion();
    const QRect closed = haveBothClosed();
    const QRect tall = have(lifelines, true);
    EXPECT_EQ(tall.height() - closed.height(), 66);
    EXPECT_LE(std::abs((tall.center() - closed.center()).y()), 1);
    const QRect both = have(ladder, true);
    EXPECT_EQ(both.width() - closed.width(), 190);
    EXPECT_EQ(both.top(), tall.top());
    EXPECT_TRUE(desk->display->area().contains(both));
    for (const char* name : {"lifeline1", "lifeline2", "lifeline3", "stage", "LL", "mws", "leave"})
        EXPECT_NO_THROW(desk->aim("orv", name));

    // Each of the hasty clicks counts, in its turn.
    desk->display->click(desk->aim("orv", "LL"), 4);
    desk->until("a slide",
                [&](const Scene& scene) { return desk->display->place(scene.at("orv").window) != both; });
    QRect after;
    desk->until("the end of the slides", [&](const Scene&) {
        after = standing();
        return after == both;
    });
    const QRect wide = have(lifelines, false);
    EXPECT_EQ(wide.top(), closed.top());
    EXPECT_EQ(haveBothClosed(), closed);
    EXPECT_EQ(crosses(desk->look()), "......");
}

TEST_F(LifelineJourney, EachIsTakenOnceAndRefusedThroughItsCross)
{
    begin();
    toQuestion();
    have(lifelines, true);
    const auto expectRefusal = [this](int n, const char* box) {
        const std::string before = contents(desk->look());
        desk->click("orv", numbered("lifeline", n));
        EXPECT_EQ(desk->answer("OK").summary(), box);
        EXPECT_EQ(contents(desk->look()), before);
    };
    EXPECT_EQ(crosses(take(1)), "XX....");
    EXPECT_EQ(crosses(take(3)), "XX..XX");
    expectRefusal(1, "Orvanta |  Sorry! Guest You have already used this lifeline | information | OK");
    expectRefusal(3, "Orvanta | Sorry! Guest, you have already used this lifeline | information | OK");
    EXPECT_EQ(take(2).text("orv", "clock").toStdString(), "0");
    desk->until("the first second", [](const Scene& scene) { return scene.text("orv", "clock") == " 1"; });
    expectRefusal(2, "Orvanta | Sorry! Guest, you have already used this lifeline | information | OK");
    desk->until("the count going on", [](const Scene& scene) { return scene.text("orv", "clock") > " 2"; });

    // The next question brings back nothing of what was used.
    win();
    next();
    have(lifelines, true);
    EXPECT_EQ(crosses(desk->look()), "XXXXXX");
    expectRefusal(2, "Orvanta | Sorry! Guest, you have already used this lifeline | information | OK");
    expectRefusal(1, "Orvanta |  Sorry! Guest You have already used this lifeline | information | OK");
    EXPECT_EQ(offered(desk->look()), "ABCD");
}

class PollAndFifty : public LifelineJourney, public testing::WithParamInterface<bool>
{
};

TEST_P(PollAndFifty, ShareAQuestion)
{
    const std::map<std::string, std::string> halves = {
        {"AB", "A 25% 25, B 75% 75"}, {"AC", "A 17% 17, C 83% 83"}, {"AD", "A 50% 50, D 50% 50"},
        {"BC", "B 38% 38, C 62% 62"}, {"BD", "B 75% 75, D 25% 25"}, {"CD", "C 83% 83, D 17% 17"}};
    const bool fiftyFirst = GetParam();
    bank.execute("update questions set a = 10, b = 30, c = 50, d = 10");
    begin();
    toQuestion();
    have(lifelines, true);
    expectCoveredChart();
    const int kept = right();
    if (fiftyFirst)
        take(3);
    take(1);
    if (!fiftyFirst) {
        EXPECT_EQ(chart(), "A 10% 10, B 30% 30, C 50% 50, D 10% 10");
        take(3);
    }
    const std::string left = offered(desk->look());
    EXPECT_EQ(left.size(), 2U) << left;
    EXPECT_NE(left.find(" ABCD"[kept]), std::string::npos) << left;
    EXPECT_EQ(chart(), fiftyFirst ? halves.at(left) : "A 10% 10, B 30% 30, C 50% 50, D 10% 10");

    for (int k = 1; k <= 4; ++k) {
        if (left.find(" ABCD"[k]) == std::string::npos) {
            choose(k);
            EXPECT_EQ(desk->answer("OK").summary(),
                      "Orvanta | You cannot select a blank option | information | OK");
        }
    }
    EXPECT_EQ(win().toStdString(), "Total Prize Money Rs. 1,000");
    next();
    expectCoveredChart();
    EXPECT_EQ(offered(desk->look()), "ABCD");
}

INSTANTIATE_TEST_SUITE_P(Lifelines, PollAndFifty, testing::Bool(), [](const auto& test) {
    return std::string(test.param ? "FiftyFirst" : "PollFirst");
});

TEST_F(LifelineJourney, TheClockStopsWhenALockIsDeclined)
{
    begin();
    toQuestion();
    have(lifelines, true);
    take(2);
    choose(wrong());
    // It counts on behind the box.
    desk->until("a second", [](const Scene& scene) { return scene.text("orv", "clock") >= " 1"; });
    desk->answer("No");
    const Scene after =
        desk->until("no clock", [](const Scene& scene) { return !scene.at("orv").control("clock").visible; });
    EXPECT_FALSE(after.at("orv").timers.at("lifelinetimer"));
    EXPECT_FALSE(after.at("orv").control("clockback").visible);
    EXPECT_EQ(crosses(after), "..XX..");
    EXPECT_EQ(win().toStdString(), "Total Prize Money Rs. 1,000");
}

TEST_F(LifelineJourney, TimeRunsOutOverAnOpenLockPrompt)
{
    begin();
    toQuestion();
    have(lifelines, true);
    take(2);
    desk->until("the seventh second", [](const Scene& scene) { return scene.text("orv", "clock") >= " 7"; });
    const Box lock = choose(right());
    const Scene two =
        desk->until("the second box", [&](const Scene& scene) { return scene.boxes.size() == 2; });
    const Box over =
        *std::ranges::find_if(two.boxes, [&](const Box& box) { return box.window != lock.window; });
    EXPECT_EQ(over.summary(), "Orvanta | Guest, your Time Is Over ! | information | OK");
    EXPECT_FALSE(two.at("orv").timers.at("lifelinetimer"));
    desk->until("the second box on top with the keyboard", [&](const Scene&) {
        return desk->display->height(over.window) > desk->display->height(lock.window) &&
               desk->hasKeyboard(over.window);
    });
    desk->display->press(Display::Return);
    desk->until("the first box alone", [&](const Scene& scene) {
        return scene.boxes.size() == 1 && scene.boxes.front().window == lock.window &&
               desk->hasKeyboard(lock.window);
    });
    desk->answer("Yes");
    const Scene won =
        desk->until("the prize", [](const Scene& scene) { return scene.at("orv").control("cmdok").focus; });
    EXPECT_EQ(won.text("orv", "question").toStdString(), "Total Prize Money Rs. 1,000");
    EXPECT_FALSE(won.at("orv").control("clock").visible);
    next();
    EXPECT_EQ(offered(desk->look()), "ABCD");
}

TEST_F(LifelineJourney, AllAreTakenWhileTheRightAnswerFlashes)
{
    begin();
    toQuestion();
    have(lifelines, true);
    choose(right());
    std::vector<QPoint> points;
    for (const char* name : {"lifeline1", "lifeline2", "lifeline3", "LL"})
        points.push_back(desk->aim("orv", name));
    desk->answer("Yes");
    desk->until("the flashing", [](const Scene& scene) { return scene.at("orv").timers.at("flash"); });
    // Clicks of the same instant would not do: the moves of the mouse between them get merged into one.
    for (int n = 1; n <= 3; ++n) {
        desk->display->click(points[n - 1]);
        untilCrossed(n);
    }
    desk->display->click(points[3]);
    const Scene won =
        desk->until("the prize", [](const Scene& scene) { return scene.at("orv").control("cmdok").focus; });
    EXPECT_EQ(crosses(won), "XXXXXX");
    EXPECT_EQ(offered(won).size(), 2U);
    EXPECT_FALSE(won.at("orv").control("clock").visible);
    EXPECT_FALSE(won.at("orv").timers.at("lifelinetimer"));
    EXPECT_FALSE(won.at("orv").control("lifeline1").enabled);
    expectCoveredChart();
    next();
    EXPECT_EQ(offered(desk->look()), "ABCD");
    have(lifelines, true);
    desk->click("orv", "lifeline3");
    EXPECT_EQ(desk->answer("OK").summary(),
              "Orvanta | Sorry! Guest, you have already used this lifeline | information | OK");
}

} // namespace desk
