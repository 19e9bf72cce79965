#include "player.h"

#include <QDir>

#include <algorithm>
#include <set>

namespace desk {

namespace {

/// The named windows from the lowest to the topmost.
std::string stack(const Display& display, const std::map<std::string, Window>& windows)
{
    std::vector<std::pair<int, std::string>> order;
    order.reserve(windows.size());
    for (const auto& [name, window] : windows)
        order.emplace_back(display.height(window), name);
    std::ranges::sort(order);
    std::string result;
    for (const auto& [height, name] : order)
        result += (result.empty() ? "" : " ") + (height < 0 ? name + " (hidden)" : name);
    return result;
}

} // namespace

struct Surroundings
{
    const char* manager;
    bool host;
};

std::ostream& operator<<(std::ostream& out, const Surroundings& surroundings)
{
    return out << surroundings.manager << (surroundings.host ? " with a host" : "");
}

class WindowsUnder : public Player, public testing::WithParamInterface<Surroundings>
{
protected:
    void start()
    {
        if (GetParam().host) {
            ASSERT_TRUE(QFile::copy(DESK_HOST, QFileInfo(bank.path()).dir().filePath("genie.acs")));
            files = "genie.acs orv.orv";
        }
        begin({.manager = GetParam().manager});
        toPrompt();
        const Scene scene = desk->until("the host", [this](const Scene& now) {
            return now.shows("host") == GetParam().host && now.shows("back");
        });
        for (const auto& [name, window] : scene.windows)
            windows_[name.toStdString()] = window.window;
    }

    /// A place where a click goes to the named window and to no other.
    QPoint placeOn(const std::string& name)
    {
        std::optional<QPoint> found;
        desk->until("a place on " + name, [&](const Scene&) {
            const QRect area = desk->display->area() & desk->display->place(windows_.at(name));
            for (int y = area.top() + 20; y < area.bottom() && !found; y += 25) {
                for (int x = area.left() + 20; x < area.right() && !found; x += 25) {
                    if (desk->display->reaches({x, y}, windows_.at(name)))
                        found = QPoint(x, y);
                }
            }
            return found.has_value();
        });
        return *found;
    }

    /// Clicks at what must not come forward; the order from the lowest to the topmost then is the backdrop,
    /// the game, the host if there is one, and the dialog if there is one.
    void clickAroundAndExpectOrder(Window dialog)
    {
        std::vector<QPoint> points = {placeOn("back")};
        if (GetParam().host)
            points.push_back(placeOn("host"));
        for (int round = 0; round < 3; ++round) {
            for (const QPoint point : points)
                desk->display->click(point);
        }
        std::string expected = GetParam().host ? "back orv host" : "back orv";
        std::map<std::string, Window> named = windows_;
        if (dialog != 0) {
            named["the dialog"] = dialog;
            expected += " the dialog";
        }
        std::string seen;
        EXPECT_NO_THROW(desk->until(expected,
                                    [&](const Scene&) {
                                        seen = stack(*desk->display, named);
                                        return seen == expected;
                                    }))
            << "but from below: " << seen;
        for (const auto& [name, window] : windows_) {
            EXPECT_TRUE(name == "orv" || desk->display->focused() != window) << name << " has the keyboard";
        }
    }

private:
    std::map<std::string, Window> windows_;
};

TEST_P(WindowsUnder, StayInTheirOrderWhateverIsClicked)
{
    start();
    clickAroundAndExpectOrder(desk->look().prompt->window);
    desk->enterName("Guest");
    desk->until("question 1",
                [](const Scene& now) { return now.text("orv", "question").startsWith("Question"); });
    clickAroundAndExpectOrder(0);

    const QPoint option = desk->aim("orv", "option1");
    const std::string chosen = choice(right()) + choice(right());
    const Box lock = choose(right());
    desk->display->click(option, 2);
    clickAroundAndExpectOrder(lock.window);
    desk->display->click(option);
    desk->answer("No");
    choose(right());
    desk->answer("Yes");
    desk->until("the prize", [](const Scene& now) { return now.at("orv").control("cmdok").focus; });
    EXPECT_EQ(choices(), chosen);

    desk->display->askToClose(desk->windowOf("orv"));
    clickAroundAndExpectOrder(desk->box().window);
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    EXPECT_EQ(desk->exitCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(Managers, WindowsUnder,
                         testing::Values(Surroundings{"openbox", false}, Surroundings{"icewm", false},
                                         Surroundings{"openbox", true}, Surroundings{"icewm", true}),
                         [](const auto& test) {
                             return test.param.manager + std::string(test.param.host ? "WithHost" : "");
                         });

class Windows : public Player
{
};

TEST_F(Windows, ChooseNothingByADoubleClickOnOk)
{
    begin();
    toQuestion();
    const std::string chosen = choice(right());
    win();
    // The right end of the button lies over option 2.
    const QPoint middle = desk->aim("orv", "cmdok");
    const int width = desk->look().at("orv").control("cmdok").place.width();
    desk->display->click(middle + QPoint(width / 2 - 6, 0), 2);
    desk->until("question 2",
                [](const Scene& now) { return now.text("orv", "question").startsWith("Question"); });
    // Whatever the second click started is older than this one and would be in its way.
    desk->click("orv", "leave");
    EXPECT_EQ(desk->answer("Yes").text.toStdString(), "Guest, are you sure you want to leave");
    EXPECT_EQ(choices(), chosen);
}

TEST_F(Windows, SlideVisiblyAndComeBackToTheirPlace)
{
    begin();
    toQuestion();
    // With the question won no prompt of the host moves the window.
    win();
    const Window game = desk->windowOf("orv");
    const QRect closed = desk->display->place(game);
    const QRect open = closed.adjusted(-95, 0, 95, 0);
    const QRect backdrop = desk->display->place(desk->windowOf("back")) & desk->display->area();
    const auto slide = [&](const QRect& from, const QRect& to) {
        std::set<int> edges;
        desk->click("orv", "mws");
        // A row through the two bars at the right, whose colour the backdrop has not.
        const int row = closed.center().y();
        desk->until("the end of the slide", [&](const Scene&) {
            for (int look = 0; look < 4; ++look) {
                const QImage line = desk->display->picture({backdrop.x(), row, backdrop.width(), 1});
                int edge = line.width() - 1;
                while (edge > 0 && line.pixelColor(edge, 0) == QColor(0, 0, 64))
                    --edge;
                edges.insert(edge);
            }
            return desk->display->place(game) == to;
        });
        edges.erase(*edges.begin());
        EXPECT_GE(edges.size(), 5U) << "from " << from.width() << " to " << to.width();
    };
    slide(closed, open);
    slide(open, closed);
    slide(closed, open);
    slide(open, closed);
    EXPECT_TRUE(desk->display->area().contains(open));
}

} // namespace desk
