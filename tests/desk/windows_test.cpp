#include "player.h"

#include <QDir>

#include <set>

namespace desk {

class WindowsUnder : public Player, public testing::WithParamInterface<std::tuple<const char*, bool>>
{
protected:
    void start()
    {
        if (host_) {
            ASSERT_TRUE(QFile::copy(DESK_HOST, QFileInfo(bank.path()).dir().filePath("genie.acs")));
            files = "genie.acs orv.orv";
            order_ = {"back", "orv", "host"};
        }
        begin({.manager = manager_});
        beyondRules();
        desk->untilOnly(host_ ? "back host orv prompt" : "back orv prompt");
    }

    /// Clicks at what must not come forward, where it is in sight, and waits until the windows are in order.
    void clickAroundAndExpectOrder(const QString& dialog)
    {
        for (const char* below : {"back", "host"})
            if (host_ || below == std::string("back"))
                desk->display->click(placeOn(desk->windowOf(below)), 3);
        QStringList wanted = order_;
        if (!dialog.isEmpty())
            wanted << dialog;
        const Scene scene = desk->untilStays(wanted.join(' ').toStdString() + " from below",
                                             [&](const Scene& now) { return fromBelow(now) == wanted; });
        for (const ShownWindow& window : scene.windows)
            EXPECT_TRUE(window.window != desk->display->focused() ||
                        (window.name != "back" && window.name != "host"));
    }

private:
    /// A place where a click goes to the window and to no other.
    QPoint placeOn(Window window)
    {
        const QRect area = desk->display->area() & desk->display->place(window);
        for (int y = area.top() + 20; y < area.bottom(); y += 25) {
            for (int x = area.left() + 20; x < area.right(); x += 25)
                if (desk->display->reaches({x, y}, window))
                    return {x, y};
        }
        throw std::runtime_error("a window is hidden");
    }

    [[nodiscard]] QStringList fromBelow(const Scene& scene) const
    {
        std::map<int, QString> windows;
        for (const ShownWindow& window : scene.windows)
            windows[desk->display->height(window.window)] = window.name;
        QStringList result;
        for (const auto& [height, name] : windows)
            result << name;
        return result;
    }

    const char* const manager_ = std::get<0>(GetParam());
    const bool host_ = std::get<1>(GetParam());
    QStringList order_{"back", "orv"}; ///< from below
};

TEST_P(WindowsUnder, StayInTheirOrderWhateverIsClicked)
{
    start();
    clickAroundAndExpectOrder("prompt");
    desk->enterName("Guest");
    untilQuestion();
    clickAroundAndExpectOrder("");
    const auto place = [this](const char* screen) { return desk->display->place(desk->windowOf(screen)); };
    EXPECT_TRUE(place("back").contains(place("orv").adjusted(-95, -34, 95, 33))) << "with both panels open";

    const QPoint option = desk->aim("orv", "option1");
    choose(right());
    desk->display->click(option, 2);
    clickAroundAndExpectOrder("box");
    desk->display->click(option);
    desk->answer("No");
    choose(right());
    desk->answer("Yes");
    desk->until("the flashing", [](const Scene& scene) { return scene.control("orv", "flash").enabled; });
    EXPECT_EQ(choices(), 2);

    // Asking again and again is the impatient player's way.
    desk->display->askToClose(desk->windowOf("back"));
    clickAroundAndExpectOrder("box");
    desk->display->askToClose(desk->windowOf("orv"));
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    EXPECT_EQ(desk->exitCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(ManagersWithoutAndWithHost, WindowsUnder,
                         testing::Combine(testing::Values("openbox", "icewm"), testing::Bool()));

using Windows = Player;

TEST_F(Windows, SlideVisiblyAndBackToTheSamePlace)
{
    begin();
    toQuestion();
    // With the question won no prompt of the host moves the window.
    win();
    const QRect closed = desk->display->place(desk->windowOf("orv"));
    const QRect open = closed.adjusted(-95, 0, 95, 0);
    const QRect row(open.x(), open.center().y(), open.width(), 1);
    std::set<int> edges;
    const auto slidTo = [&](const QRect& end) {
        return [&, end](const Scene& scene) {
            // The two bars at the right have a colour that the backdrop has not.
            const QImage line = desk->display->picture(row);
            int edge = line.width() - 1;
            while (edge > 0 && line.pixelColor(edge, 0) == QColor(0, 0, 64))
                --edge;
            edges.insert(edge);
            return desk->display->place(scene.at("orv").window) == end;
        };
    };
    desk->click("orv", "mws");
    desk->until("the ladder", slidTo(open));
    EXPECT_GE(edges.size(), 5U);
    // Each of the hasty clicks counts, in its turn.
    desk->click("orv", "mws", 3);
    desk->untilStays("the closed ladder", slidTo(closed));
}

} // namespace desk
