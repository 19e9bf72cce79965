#include "narrator/placement.h"

#include <algorithm>

namespace narrator {

namespace {

constexpr int gap = 8;

} // namespace

QPoint besideForm(const QRect& form, const QSize& host, const QRect& available)
{
    const int right = form.right() + 1 + gap;
    const int left = form.left() - gap - host.width();
    const int farthest = available.right() + 1 - host.width();
    const int x = right <= farthest ? right : left >= available.left() ? left : farthest;
    return keptOnScreen({x, form.bottom() + 1 - host.height()}, host, available);
}

QPoint keptOnScreen(const QPoint& wanted, const QSize& host, const QRect& available)
{
    const auto kept = [](int value, int low, int high) { return std::max(low, std::min(value, high)); };
    return {kept(wanted.x(), available.left(), available.right() + 1 - host.width()),
            kept(wanted.y(), available.top(), available.bottom() + 1 - host.height())};
}

} // namespace narrator
