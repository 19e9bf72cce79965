#pragma once

#include "rig/figure.h"

#include <QImage>
#include <QString>

/// A gesture in a row of poses evenly spread over its time, `zoom` times the size on screen.
[[nodiscard]] QImage drawGesture(rig::Figure& figure, const rig::Gesture& gesture, int poses, double zoom);

/// Every mouth shape, large, with the rest of the face around it.
[[nodiscard]] QImage drawMouths(rig::Figure& figure);

/// The middle of every gesture, `columns` in a row.
[[nodiscard]] QImage drawOverview(rig::Figure& figure, int columns, double zoom);

/// Every gesture of a character, a row of `poses` each.
[[nodiscard]] QImage drawSheet(rig::Figure& figure, int poses, double zoom);
