#include "rig/motion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace rig {

namespace {

constexpr double restBlendMs = 180;
constexpr double restStepMs = 90;
constexpr double vanishing = 0.01; ///< a part squeezed below this factor is not painted

double& channel(Pose& pose, int bone, Channel which)
{
    return pose.bones[bone][static_cast<std::size_t>(which)];
}

double channel(const Pose& pose, int bone, Channel which)
{
    return pose.bones[bone][static_cast<std::size_t>(which)];
}

Pose towardsRest(const Rig& rig, const Pose& start, double timeMs)
{
    if (timeMs >= restBlendMs)
        return rig.rest;
    Pose pose = start;
    const double share = eased(Ease::InOut, timeMs / restBlendMs);
    for (std::size_t bone = 0; bone < pose.bones.size(); ++bone)
        for (std::size_t i = 0; i < channelCount; ++i)
            pose.bones[bone][i] = std::lerp(start.bones[bone][i], rig.rest.bones[bone][i], share);
    if (timeMs >= restStepMs) {
        pose.slots = rig.rest.slots;
        pose.layers = rig.rest.layers;
    }
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

int valueAt(const std::vector<Step>& steps, int start, int rest, double timeMs)
{
    int value = start;
    for (const Step& step : steps) {
        if (timeMs < step.timeMs)
            break;
        value = step.value.value_or(rest);
    }
    return value;
}

Pose poseAt(const Rig& rig, const Motion& motion, double timeMs)
{
    Pose pose = towardsRest(rig, motion.start, timeMs);
    if (!motion.gesture)
        return pose;
    for (const Curve& curve : motion.gesture->curves) {
        channel(pose, curve.bone, curve.channel) =
            valueAt(curve.keys, channel(motion.start, curve.bone, curve.channel),
                    channel(rig.rest, curve.bone, curve.channel), timeMs);
    }
    for (const Steps& track : motion.gesture->steps) {
        const auto of = [&](const Pose& p) {
            return track.ofLayer ? p.layers[track.target] : p.slots[track.target];
        };
        const int value = valueAt(track.steps, of(motion.start), of(rig.rest), timeMs);
        (track.ofLayer ? pose.layers : pose.slots)[track.target] = value;
    }
    return pose;
}

void addSines(const Rig& rig, Pose& pose, double timeMs)
{
    for (const Sine& sine : rig.sines) {
        const double turns = timeMs / sine.periodMs + sine.phase;
        channel(pose, sine.bone, sine.channel) += std::sin(turns * 2 * std::numbers::pi) * sine.amplitude;
    }
}

void closeLids(const Rig& rig, Pose& pose, double closed)
{
    for (const Lid& lid : rig.lids) {
        double& value = channel(pose, lid.bone, lid.channel);
        value = std::lerp(value, lid.closed, closed);
    }
}

void addGlance(const Rig& rig, Pose& pose, const QPointF& sight)
{
    for (const Glance& glance : rig.glances) {
        channel(pose, glance.bone, Channel::X) += glance.reach.x() * sight.x();
        channel(pose, glance.bone, Channel::Y) += glance.reach.y() * sight.y();
    }
}

void shapeMouth(const Rig& rig, Pose& pose, mouth::Shape shape)
{
    if (shape != mouth::Shape::Rest)
        pose.slots[rig.mouthSlot] = rig.mouths[static_cast<std::size_t>(shape)];
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
        const double width = pose.bones[i][static_cast<std::size_t>(Channel::ScaleX)];
        const double height = pose.bones[i][static_cast<std::size_t>(Channel::ScaleY)];
        flat.push_back(std::abs(width) < vanishing || std::abs(height) < vanishing ||
                       (parent >= 0 && flat[parent]));
    }
    std::vector<int> shown;
    for (std::size_t i = 0; i < rig.draws.size(); ++i) {
        const Draw& draw = rig.draws[i];
        const bool held = draw.slot < 0 || pose.slots[draw.slot] == static_cast<int>(i);
        if (held && !flat[draw.bone])
            shown.push_back(static_cast<int>(i));
    }
    const auto depth = [&](int i) {
        const int layer = rig.draws[i].layer;
        return layer < 0 ? 0 : pose.layers[layer];
    };
    std::ranges::stable_sort(shown, {}, depth);
    return shown;
}

} // namespace rig
