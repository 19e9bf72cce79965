#include "rig/gaze.h"
#include "rig/motion.h"
#include "rig/picture.h"
#include "rig/svg_values.h"
#include "support/sample.h"

#include <QLineF>
#include <QPainter>

#include <gtest/gtest.h>

#include <random>

using namespace rig;

namespace {

constexpr std::size_t arm = 1;

/// The draws of the sample.
enum Part { body, fist, palm, lip, yell };
using Parts = std::vector<int>;

} // namespace

TEST(Values, AreReadAsThePainterReadsThem)
{
    QPainterPath path(QPointF(1, 2));
    path.lineTo(3, -4);
    path.lineTo(5, 6);
    path.cubicTo(1, 2, 3, 4, 0.5, 0.7);
    path.closeSubpath();
    QStringView bad;
    EXPECT_EQ(outlineOf(u" M1,2 3-4L5 6C1 2 3 4 .5.7Z", bad), path);
    const auto transform =
        plainTransform(u"matrix(2 1 0 3 5 6) translate(2, 3)translate(2) rotate(90) rotate(90 5 -1)");
    EXPECT_EQ(transform.value().map(QPointF(5, 6)).toPoint(), QPoint(15, 14));
}

TEST(Track, IsEvaluatedAtBetweenAndBeyondItsKeys)
{
    const std::vector<Key> keys{
        {100, 10, Ease::Linear}, {200, 20, Ease::Hold}, {300, {}, Ease::InOut}, {400, 50, Ease::Back}};
    const std::pair<double, double> table[]{
        {-5, 4},   {0, 4},     {50, 7},   {100, 10}, {150, 10},
        {199, 10}, {200, 20},  {250, 10}, {300, 0},  {350, 50 * (1 - 0.25 * (2.7 * 0.5 - 1.7))},
        {400, 50}, {9000, 50},
    };
    for (const auto& [time, value] : table)
        EXPECT_NEAR(valueAt(keys, 4, 0, time), value, 1e-9) << time;
    EXPECT_EQ(valueAt({{0, 7, Ease::InOut}}, 4, 0, 0), 7);
}

TEST(Motion, BeginsInThePoseReachedAndComesBackToRest)
{
    const Rig rig = sample::rig();
    EXPECT_EQ(rig.gesture("SAD"), nullptr);
    const Gesture* sad = rig.gesture("sad");
    const Pose raised = poseAt(rig, {sad, rig.rest}, 400);
    EXPECT_DOUBLE_EQ(raised.bones[arm][0], 90);
    EXPECT_EQ(visibleDraws(rig, raised), Parts({palm, body, lip})); // the arm's layer went behind the body

    const Pose falling = poseAt(rig, {nullptr, raised}, 90);
    EXPECT_DOUBLE_EQ(falling.bones[arm][0], 50);
    EXPECT_EQ(visibleDraws(rig, falling), Parts({body, fist, lip}));
    EXPECT_EQ(poseAt(rig, {nullptr, raised}, 180), rig.rest);
    EXPECT_DOUBLE_EQ(poseAt(rig, {sad, falling}, 100).bones[arm][0], 70);
}

TEST(Motion, LaysBreathLidsAndMouthOverThePoseAndTurnsBonesAboutTheirPivots)
{
    const Rig rig = sample::rig();
    Pose pose = rig.rest;
    addSines(rig, pose, 1000); // a quarter of its period
    EXPECT_NEAR(pose.bones[0][2], 2, 1e-9);
    closeLids(rig, pose, 0.5);
    EXPECT_DOUBLE_EQ(pose.bones[arm][4], 0.75);
    shapeMouth(rig, pose, mouth::Shape::A);
    shapeMouth(rig, pose, mouth::Shape::Rest); // leaves what there is
    EXPECT_EQ(visibleDraws(rig, pose), Parts({body, fist, yell}));
    shapeMouth(rig, pose, mouth::Shape::U);
    pose.bones[arm][3] = -0.005;
    EXPECT_EQ(visibleDraws(rig, pose), Parts({body, lip}));
    pose.bones[0][4] = 0;
    pose.bones[arm][3] = 1;
    EXPECT_EQ(visibleDraws(rig, pose), Parts()); // what hangs on a flat bone is flat
    addGlance(rig, pose, {0.5, -1});
    EXPECT_EQ(std::pair(pose.bones[arm][1], pose.bones[arm][2]), std::pair(2.0, 3.0));

    pose.bones[0] = {90, 5, 0, 2, 1}; // about 20,22: twice as wide, a quarter turn, then 5 to the right
    pose.bones[arm] = {90, 0, 0, 1, 1};
    const std::vector<QTransform> bones = boneTransforms(rig, pose);
    EXPECT_EQ(bones[0].map(QPointF(30, 22)).toPoint(), QPoint(25, 42));
    EXPECT_EQ(bones[arm].map(QPointF(30, 32)).toPoint(), QPoint(25, 22));
}

TEST(Picture, IsPaintedAnewOnlyWhereItChangesAndThenLikeANewOne)
{
    Figure figure(readCharacter(sample::character(), "sample"), {});
    const Rig& rig = figure.rig();
    Picture kept(figure);
    Picture fresh(figure);
    std::mt19937 numbers(7);
    const auto random = [&](unsigned below) { return static_cast<int>(numbers() % below); };
    Pose pose = rig.rest;
    for (int step = 0; step < 80; ++step) {
        const double ratio = 1 + step / 30 * 0.5;
        const auto reset = [&](Picture& picture) {
            picture.reset({200, 220}, QTransform::fromScale(0.75, 0.75), ratio);
        };
        if (step % 30 == 0)
            reset(kept);
        if (step % 4 == 0) // a leap between small moves
            pose = poseAt(rig, {rig.gesture("sad"), rig.rest}, random(1000));
        pose.bones[arm][0] += random(3);
        pose.bones[0][2] += 0.03; // an eighth of a pixel
        QImage expected = kept.image().copy();
        const QRegion changed = kept.show(pose);
        EXPECT_EQ(kept.area(), QRect(0, 0, 200, 220));
        reset(fresh);
        fresh.show(pose);
        QPainter painter(&expected);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.setClipRegion(changed);
        painter.drawImage(0, 0, kept.image());
        painter.end();
        EXPECT_EQ(kept.image(), expected) << step; // nothing has changed elsewhere
        const QImage a = kept.image().scaled(20, 22, {}, Qt::SmoothTransformation);
        const QImage b = fresh.image().scaled(20, 22, {}, Qt::SmoothTransformation);
        for (int i = 0; i < a.sizeInBytes(); ++i)
            ASSERT_NEAR(a.constBits()[i], b.constBits()[i], 26) << step;
    }
    pose.bones[0][2] += 0.01;
    EXPECT_TRUE(kept.show(pose).isEmpty());
}

TEST(Gaze, WandersToTheQuestionAndThePointerButOnlyAtRest)
{
    const double numbers[]{0.1, 0.2, 0.5, 0.9, 0.5};
    std::function<double()> random = [next = numbers]() mutable { return *next++; };
    const auto sights = [] { return Sights{{-1, 0}, {0, 1}}; };
    const struct
    {
        int timeMs;
        bool resting;
        QPointF expected;
    } table[]{
        {2490, true, {0, 0}}, {3300, true, {-1, 0}}, {4190, false, {0, 0}}, {4490, true, {-1, 0}},
        {5000, true, {0, 0}}, {8990, true, {0, 0}},  {9900, true, {0, 1}},
    };
    Gaze gaze(random, Gaze::Milliseconds(0));
    for (const auto& [timeMs, resting, expected] : table) {
        const QPointF seen = gaze.at(Gaze::Milliseconds(timeMs), resting, sights);
        EXPECT_LT(QLineF(seen, expected).length(), 0.03) << timeMs;
    }
}
