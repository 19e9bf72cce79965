#include "stage/placement.h"

#include <algorithm>
#include <cmath>

namespace stage {

namespace {

constexpr int gap = 8;
constexpr double leastScale = 0.5;
constexpr double scaleSteps =
    8; ///< to the full size; a host that is resized in each pixel of a slide flickers

struct Room
{
    int left, right; ///< without the gap
};

Room roomBeside(const QRect& form, const QRect& available)
{
    return {form.left() - available.left() - gap, available.right() - form.right() - gap};
}

} // namespace

double scaleBeside(const QRect& form, int fullWidth, const QRect& available)
{
    const Room room = roomBeside(form, available);
    const double share = static_cast<double>(std::max(room.left, room.right)) / fullWidth;
    return std::clamp(std::floor(share * scaleSteps) / scaleSteps, leastScale, 1.0);
}

QPoint besideForm(const QRect& form, const QSize& host, const QRect& available)
{
    const Room room = roomBeside(form, available);
    const bool onRight = room.right >= host.width() || room.right >= room.left;
    const int x = onRight ? form.right() + 1 + gap : form.left() - gap - host.width();
    return keptOnScreen({x, form.bottom() + 1 - host.height()}, host, available);
}

QPoint keptOnScreen(const QPoint& wanted, const QSize& host, const QRect& available)
{
    const auto kept = [](int value, int low, int high) { return std::max(low, std::min(value, high)); };
    return {kept(wanted.x(), available.left(), available.right() + 1 - host.width()),
            kept(wanted.y(), available.top(), available.bottom() + 1 - host.height())};
}

} // namespace stage
