#include "player.h"

#include <algorithm>

namespace desk {

namespace {

const QColor ground(0, 0, 64);
const QColor barColour(255, 255, 192);

} // namespace

class LifelineJourney : public Player
{
protected:
    /// Opens the panel with the lifelines. A prompt of the host may do that at any moment, also while the
    /// mouse is on its way.
    void openLifelines()
    {
        for (int attempt = 0; attempt < 5; ++attempt) {
            QRect place;
            desk->untilStays("the form at rest", [&](const Scene& scene) {
                const QRect former = std::exchange(place, desk->display->place(scene.at("orv").window));
                return place == former;
            });
            if (place.height() == 500)
                return;
            desk->click("orv", "LL");
        }
        throw std::runtime_error("the lifelines do not come");
    }

    /// Waits for a colour on the screen in the middle of a control.
    void untilColour(const QString& control, const QColor& colour)
    {
        desk->until((control + " in " + colour.name()).toStdString(), [&](const Scene& scene) {
            const QPoint corner = desk->display->place(scene.at("orv").window).topLeft();
            const QPoint seen = corner + scene.control("orv", control).place.center();
            return desk->display->picture({seen, QSize(1, 1)}).pixelColor(0, 0) == colour;
        });
    }

    void take(const QString& lifeline)
    {
        desk->click("orv", lifeline);
        untilColour(lifeline, Qt::red);
    }
};

TEST_F(LifelineJourney, AreCrossedOutWhereTheyStandAndThePollIsPainted)
{
    bank.execute("update questions set a = 10, b = 30, c = 50, d = 10");
    begin();
    toQuestion();
    openLifelines();
    untilColour("pollbar[2]", ground);
    take("lifeline1");
    for (int i = 0; i < 4; ++i)
        untilColour(QString("pollbar[%1]").arg(i), barColour);
    EXPECT_EQ(desk->look().control("orv", "pollbar[2]").place.height(), 50);
    take("lifeline3");
    win();
    next();
    untilColour("pollbar[2]", ground);
    openLifelines();
    take("lifeline2");
    desk->click("orv", "lifeline3");
    EXPECT_EQ(desk->answer("OK").summary(),
              "Orvanta | Sorry! Guest, you have already used this lifeline | information | OK");
}

TEST_F(LifelineJourney, TimeRunsOutOverAnOpenLockPrompt)
{
    begin();
    toQuestion();
    openLifelines();
    take("lifeline2");
    const ShownWindow lock = choose(right());
    desk->until("the fourth second",
                [](const Scene& scene) { return scene.control("orv", "clock").text == " 4"; });
    const Scene two = desk->until("the second box", [&](const Scene& scene) {
        return std::ranges::count(scene.windows, "box", &ShownWindow::name) == 2;
    });
    const ShownWindow over = *std::ranges::find_if(two.windows, [&](const ShownWindow& window) {
        return window.name == "box" && window.window != lock.window;
    });
    EXPECT_EQ(over.summary(), "Orvanta | Guest, your Time Is Over ! | information | OK");
    desk->untilKeyboard(over.window);
    EXPECT_GT(desk->display->height(over.window), desk->display->height(lock.window));
    desk->display->type("\r");
    desk->untilKeyboard(lock.window);
    desk->answer("Yes");
    desk->untilFocus("orv", "cmdok");
    EXPECT_EQ(says(), "Total Prize Money Rs. 1,000");
}

} // namespace desk
