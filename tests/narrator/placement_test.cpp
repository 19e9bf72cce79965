#include "narrator/placement.h"

#include <gtest/gtest.h>

using namespace narrator;

TEST(Placement, goes_right_left_or_over_the_corner)
{
    const QSize host(300, 400);
    const QRect large(0, 0, 1920, 1080);
    const QRect small(0, 0, 1024, 768);
    const struct
    {
        const char* what;
        QRect form;
        QRect screen;
        QPoint place;
    } table[]{
        {"room on the right", {600, 300, 602, 434}, large, {1210, 334}},
        {"just enough room on the right", {1010, 300, 602, 434}, large, {1620, 334}},
        {"one pixel short, so on the left", {1011, 300, 602, 434}, large, {703, 334}},
        {"no room on either side", {211, 167, 602, 434}, small, {724, 201}},
        {"the same after the panels slid out", {116, 134, 792, 500}, small, {724, 234}},
        {"the form as wide as the screen", {0, 0, 1024, 768}, small, {724, 368}},
        {"on a second screen", {2000, 100, 602, 434}, {1920, 0, 1280, 1024}, {2610, 134}},
        {"bottom below the screen", {100, 800, 602, 434}, large, {710, 680}},
        {"top above the screen", {100, -300, 602, 434}, large, {710, 0}},
        {"screen smaller than the host", {0, 0, 100, 100}, {0, 30, 200, 300}, {0, 30}},
    };
    for (const auto& row : table) {
        EXPECT_EQ(besideForm(row.form, host, row.screen), row.place) << row.what;
    }
}
