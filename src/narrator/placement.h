#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace narrator {

/// Where the host's window goes beside the frame of the form, within what the screen has free. Bottoms
/// level, on the right if there is room, else on the left, else as far right as the screen allows, where
/// it lies over the form's right lower corner.
[[nodiscard]] QPoint besideForm(const QRect& form, const QSize& host, const QRect& available);

/// The nearest place to `wanted` at which the whole host is on the screen.
[[nodiscard]] QPoint keptOnScreen(const QPoint& wanted, const QSize& host, const QRect& available);

} // namespace narrator
