#pragma once

#include "narrator/figure.h"

#include <QImage>
#include <QString>

/// A gesture in a row of poses evenly spread over its time, `zoom` times the size on screen.
[[nodiscard]] QImage drawGesture(narrator::Figure& figure, const narrator::Gesture& gesture, int poses,
                                 double zoom);

/// Every mouth shape, large, with the rest of the face around it.
[[nodiscard]] QImage drawMouths(narrator::Figure& figure);

/// The middle of every gesture, `columns` in a row.
[[nodiscard]] QImage drawOverview(narrator::Figure& figure, int columns, double zoom);

/// Every gesture of a character, a row of `poses` each.
[[nodiscard]] QImage drawSheet(narrator::Figure& figure, int poses, double zoom);
