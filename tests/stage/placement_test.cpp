#include "stage/placement.h"

#include <gtest/gtest.h>

using namespace stage;

TEST(Placement, GoesRightLeftOrOverTheCornerAndShrinksBefore)
{
    const QSize host(300, 400);
    const QRect large(0, 0, 1920, 1080);
    const QRect small(0, 0, 1024, 768);
    const struct
    {
        QRect form, screen;
        QPoint place;
        double scale;
    } table[]{
        {{564, 290, 792, 500}, large, {1364, 390}, 1},
        {{1010, 300, 602, 434}, large, {1620, 334}, 1},   // just enough room on the right
        {{1011, 300, 602, 434}, large, {703, 334}, 1},    // one pixel short, so on the left
        {{211, 167, 602, 434}, small, {724, 201}, 0.625}, // no room on either side
        {{300, 167, 602, 434}, small, {0, 201}, 0.875},   // neither side, but more on the left
        {{0, 0, 1024, 768}, small, {724, 368}, 0.5},      // the form as wide as the screen
        {{244, 262, 792, 500}, {0, 0, 1280, 1024}, {980, 362}, 0.75},
        {{2000, 100, 602, 434}, {1920, 0, 1280, 1024}, {2610, 134}, 1}, // on a second screen
        {{100, 800, 602, 434}, large, {710, 680}, 1},                   // bottom below the screen
        {{100, -300, 602, 434}, large, {710, 0}, 1},                    // top above the screen
        {{0, 0, 100, 100}, {0, 30, 200, 300}, {0, 30}, 0.5},            // screen smaller than the host
    };
    for (const auto& [form, screen, place, scale] : table) {
        EXPECT_EQ(besideForm(form, host, screen), place) << form.x();
        EXPECT_EQ(scaleBeside(form, host.width(), screen), scale) << form.x();
    }
}
