#pragma once

#include "rig/rig.h"

#include <QTransform>

#include <vector>

namespace rig {

/// A gesture (or, with none, the way back to rest) and the pose in which it was begun.
struct Motion
{
    const Gesture* gesture = nullptr;
    Pose start;
};

/// How much of a change is done at the share `t` (0 to 1) of its time.
[[nodiscard]] double eased(Ease ease, double t);

/// The value of a track at a time since its gesture began; before the first key it comes from `start`.
[[nodiscard]] double valueAt(const std::vector<Key>& keys, double start, double rest, double timeMs);

/// The pose of a motion, without what is laid over it below. What the gesture leaves alone goes to rest.
[[nodiscard]] Pose poseAt(const Rig& rig, const Motion& motion, double timeMs);

void addSines(const Rig& rig, Pose& pose, double timeMs);
/// `closed` is 0 for eyes as the pose has them, 1 for shut.
void closeLids(const Rig& rig, Pose& pose, double closed);
/// Turns towards `sight`: from -1 to 1 to the right and downwards.
void addGlance(const Rig& rig, Pose& pose, const QPointF& sight);
void shapeMouth(const Rig& rig, Pose& pose, mouth::Shape shape);

/// From the drawing as it lies in the file to the drawing in this pose, one transform per bone.
[[nodiscard]] std::vector<QTransform> boneTransforms(const Rig& rig, const Pose& pose);

/// The draws that show in this pose, back to front.
[[nodiscard]] std::vector<int> visibleDraws(const Rig& rig, const Pose& pose);

} // namespace rig
