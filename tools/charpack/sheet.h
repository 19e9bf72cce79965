#pragma once

#include "rig/figure.h"

#include <QImage>

#include <vector>

/// Of a gesture, evenly spread over its time.
[[nodiscard]] std::vector<rig::Pose> posesOf(const rig::Rig& rig, const rig::Gesture& gesture, int count);

/// The poses in a ruled table, row by row, `zoom` times the size on screen.
[[nodiscard]] QImage drawPoses(rig::Figure& figure, const std::vector<rig::Pose>& poses, int columns,
                               double zoom);

/// Every mouth shape, large, with the rest of the face around it.
[[nodiscard]] QImage drawMouths(rig::Figure& figure);
