#include "rig/motion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace rig {

namespace {

constexpr double restBlendMs = 180;
constexpr double restStepMs = 90;
constexpr double vanishing = 0.01; ///< a part squeezed below this factor is not painted

Pose towardsRest(const Rig& rig, const Pose& start, double timeMs)
{
    if (timeMs >= restBlendMs)
        return rig.rest;
    Pose pose = start;
    const double share = eased(Ease::InOut, timeMs / restBlendMs);
    for (std::size_t bone = 0; bone < pose.bones.size(); ++bone)
        for (std::size_t i = 0; i < pose.bones[bone].size(); ++i)
            pose.bones[bone][i] = std::lerp(start.bones[bone][i], rig.rest.bones[bone][i], share);
    if (timeMs >= restStepMs)
        pose.switches = rig.rest.switches;
    return pose;
}

} // namespace

double eased(Ease ease, double t)
{
    const double left = 1 - t;
    switch (ease) {
    case Ease::Linear:
        return t;
    case Ease::In:
        return t * t * t;
    case Ease::Out:
        return 1 - left * left * left;
    case Ease::InOut:
        return t < 0.5 ? 4 * t * t * t : 1 - 4 * left * left * left;
    case Ease::Back: {
        constexpr double overshoot = 1.7;
        const double ahead = 1 - t * t * (3 - 2 * t); // a soft start, for a limb with weight
        return 1 - ahead * ahead * ((overshoot + 1) * ahead - overshoot);
    }
    case Ease::Hold:
        return t < 1 ? 0 : 1;
    }
    return t;
}

double valueAt(const std::vector<Key>& keys, double start, double rest, double timeMs)
{
    double fromTime = 0;
    double from = start;
    for (const Key& key : keys) {
        const double to = key.value.value_or(rest);
        if (timeMs < key.timeMs) {
            return std::lerp(from, to,
                             eased(key.ease, std::max(0.0, timeMs - fromTime) / (key.timeMs - fromTime)));
        }
        fromTime = key.timeMs;
        from = to;
    }
    return from;
}

Pose poseAt(const Rig& rig, const Motion& motion, double timeMs)
{
    Pose pose = towardsRest(rig, motion.start, timeMs);
    if (!motion.gesture)
        return pose;
    for (const auto& [place, keys] : motion.gesture->tracks)
        pose[place] = valueAt(keys, motion.start[place], rig.rest[place], timeMs);
    return pose;
}

void addSines(const Rig& rig, Pose& pose, double timeMs)
{
    for (const Sine& sine : rig.sines) {
        const double turns = timeMs / sine.periodMs + sine.phase;
        pose[sine.place] += std::sin(turns * 2 * std::numbers::pi) * sine.amplitude;
    }
}

void closeLids(const Rig& rig, Pose& pose, double closed)
{
    for (const Lid& lid : rig.lids) {
        double& value = pose[lid.place];
        value = std::lerp(value, lid.closed, closed);
    }
}

void addGlance(const Rig& rig, Pose& pose, const QPointF& sight)
{
    for (const Glance& glance : rig.glances) {
        auto& [rotation, x, y, scaleX, scaleY] = pose.bones[glance.bone];
        x += glance.reach.x() * sight.x();
        y += glance.reach.y() * sight.y();
    }
}

void shapeMouth(const Rig& rig, Pose& pose, mouth::Shape shape)
{
    if (shape != mouth::Shape::Rest)
        pose.switches[rig.mouthSlot] = rig.mouths[static_cast<std::size_t>(shape)];
}

std::vector<QTransform> boneTransforms(const Rig& rig, const Pose& pose)
{
    std::vector<QTransform> transforms;
    transforms.reserve(rig.bones.size());
    for (std::size_t i = 0; i < rig.bones.size(); ++i) {
        const Bone& bone = rig.bones[i];
        const auto& [rotation, x, y, scaleX, scaleY] = pose.bones[i];
        QTransform transform = bone.parent < 0 ? QTransform() : transforms[bone.parent];
        transform.translate(bone.pivot.x() + x, bone.pivot.y() + y);
        transform.rotate(rotation);
        transform.scale(scaleX, scaleY);
        transform.translate(-bone.pivot.x(), -bone.pivot.y());
        transforms.push_back(transform);
    }
    return transforms;
}

std::vector<int> visibleDraws(const Rig& rig, const Pose& pose)
{
    std::vector<bool> flat;
    flat.reserve(rig.bones.size());
    for (std::size_t i = 0; i < rig.bones.size(); ++i) {
        const int parent = rig.bones[i].parent;
        const auto& [rotation, x, y, width, height] = pose.bones[i];
        flat.push_back(std::abs(width) < vanishing || std::abs(height) < vanishing ||
                       (parent >= 0 && flat[parent]));
    }
    std::vector<int> shown;
    for (std::size_t i = 0; i < rig.draws.size(); ++i) {
        const Draw& draw = rig.draws[i];
        const bool held = draw.slot < 0 || pose.switches[draw.slot] == static_cast<double>(i);
        if (held && !flat[draw.bone])
            shown.push_back(static_cast<int>(i));
    }
    const auto depth = [&](int i) {
        const int layer = rig.draws[i].layer;
        return layer < 0 ? 0 : pose.switches[layer];
    };
    std::ranges::stable_sort(shown, {}, depth);
    return shown;
}

} // namespace rig
