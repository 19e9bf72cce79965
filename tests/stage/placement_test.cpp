#include "stage/placement.h"

#include <gtest/gtest.h>

using namespace stage;

TEST(Placement, GoesRightLeftOrOverTheCorner)
{
    const QSize host(300, 400);
    const QRect large(0, 0, 1920, 1080);
    const QRect small(0, 0, 1024, 768);
    const struct
    {
        QRect form, screen;
        QPoint place;
    } table[]{
        {{1010, 300, 602, 434}, large, {1620, 334}},                 // just enough room on the right
        {{1011, 300, 602, 434}, large, {703, 334}},                  // one pixel short, so on the left
        {{211, 167, 602, 434}, small, {724, 201}},                   // no room on either side
        {{300, 167, 602, 434}, small, {0, 201}},                     // neither side, but more on the left
        {{0, 0, 1024, 768}, small, {724, 368}},                      // the form as wide as the screen
        {{2000, 100, 602, 434}, {1920, 0, 1280, 1024}, {2610, 134}}, // on a second screen
        {{100, 800, 602, 434}, large, {710, 680}},                   // bottom below the screen
        {{100, -300, 602, 434}, large, {710, 0}},                    // top above the screen
        {{0, 0, 100, 100}, {0, 30, 200, 300}, {0, 30}},              // screen smaller than the host
    };
    for (const auto& row : table)
        EXPECT_EQ(besideForm(row.form, host, row.screen), row.place);
}

TEST(Placement, ShrinksTheHostBeforeItLiesOverTheForm)
{
    const struct
    {
        QRect form, screen;
        double scale;
    } table[]{
        {{564, 290, 792, 500}, {0, 0, 1920, 1080}, 1},    {{1010, 300, 602, 434}, {0, 0, 1920, 1080}, 1},
        {{244, 262, 792, 500}, {0, 0, 1280, 1024}, 0.75}, {{211, 167, 602, 434}, {0, 0, 1024, 768}, 0.625},
        {{116, 134, 792, 500}, {0, 0, 1024, 768}, 0.5},   {{1920, 0, 800, 600}, {1920, 0, 800, 600}, 0.5},
    };
    for (const auto& row : table)
        EXPECT_EQ(scaleBeside(row.form, 300, row.screen), row.scale) << row.form.x();
}
