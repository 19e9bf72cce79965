#include "rig/motion.h"
#include "stage/stage.h"
#include "support/sample.h"

#include <gtest/gtest.h>

using namespace stage;

namespace {

/// The lower part of the stage in squares of 20 pixels: g the body, o the fist, d lips or the open hand.
std::string figure(Stage& stage)
{
    constexpr int balloonHeight = 164;
    const QImage seen = stage.grab(stage.rect().adjusted(0, balloonHeight, 0, 0)).toImage();
    const QImage squares = seen.scaled(seen.size() / 20, {}, Qt::SmoothTransformation);
    std::string map;
    for (int y = 0; y < squares.height(); ++y) {
        for (int x = 0; x < squares.width(); ++x) {
            const QColor colour = squares.pixelColor(x, y);
            map += colour.alpha() < 128 ? '.' : colour.red() > 100 ? 'o' : colour.green() > 100 ? 'g' : 'd';
        }
        map += '|';
    }
    return map;
}

} // namespace

TEST(Stage, ShowsTheFigureInItsPlaceAndPose)
{
    QWidget form;
    form.resize(602, 434);
    rig::Figure small(rig::readCharacter(sample::character(), "sample"), {});
    Stage stage(form, small);
    form.show();
    stage.enter();
    rig::Pose reaching = small.rig().rest;
    reaching.switches[0] = 2;
    reaching.bones[1][0] = -90;
    const std::string above =
        "...............|...............|...............|.....ggggg.....|.....ggdgg.....|";
    const std::string atRest = above + ".....ggggg.....|.....ggggo.....|.....ggggo.....|.....ggggo.....|"
                                       ".....ggggg.....|.....ggggg.....|...............|";
    const std::string reached = above + ".....ggggg...d.|.....ggggg...d.|.....ggggg.....|.....ggggg.....|"
                                        ".....ggggg.....|.....ggggg.....|...............|";
    for (const auto& [pose, map] :
         {std::pair(small.rig().rest, atRest), {reaching, reached}, {small.rig().rest, atRest}}) {
        stage.present(pose, "Well", 4);
        EXPECT_EQ(figure(stage), map);
    }
    // The balloon stands above the middle.
    const QColor paper = stage.grab(QRect(145, 110, 10, 10)).toImage().pixelColor(5, 5);
    EXPECT_GT(paper.lightness(), 200);
    EXPECT_NEAR(stage.sights().question.x(), -0.6, 0.02); // up and to the left
    EXPECT_NEAR(stage.sights().question.y(), -0.62, 0.02);
    stage.leave();
    EXPECT_FALSE(stage.isVisible());
}
