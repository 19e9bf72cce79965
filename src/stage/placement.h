#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace stage {

/// The share of its full size, from a half to one, at which a host of that width fits beside the frame of
/// the form. At a half it may lie over the form.
[[nodiscard]] double scaleBeside(const QRect& form, int fullWidth, const QRect& available);

/// Where the host's window goes beside the frame of the form, within what the screen has free. Bottoms
/// level, on the right if there is room, else on the left, else on the roomier side at the edge of the
/// screen, where it lies over the form's lower corner.
[[nodiscard]] QPoint besideForm(const QRect& form, const QSize& host, const QRect& available);

/// The nearest place to `wanted` at which the whole host is on the screen.
[[nodiscard]] QPoint keptOnScreen(const QPoint& wanted, const QSize& host, const QRect& available);

} // namespace stage
