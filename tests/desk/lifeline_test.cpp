#include "player.h"

#include <algorithm>

namespace desk {

using LifelineJourney = Player;

TEST_F(LifelineJourney, TimeRunsOutOverAnOpenLockPrompt)
{
    begin();
    toQuestion();
    take(2);
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
