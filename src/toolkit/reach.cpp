#include "toolkit/reach.h"

#include "toolkit/shapes.h"

#include <algorithm>

namespace toolkit {

bool isCovered(const QWidget& control)
{
    // From the lowest to the highest.
    const QObjectList& siblings = control.parentWidget()->children();
    return std::any_of(std::ranges::find(siblings, &control), siblings.end(), [&](const QObject* sibling) {
        const auto* const shape = dynamic_cast<const Shape*>(sibling);
        return shape && shape->isCover() && shape->isShownAt(control.geometry().center());
    });
}

bool isInView(const QWidget& control)
{
    return !control.isHidden() && control.parentWidget()->rect().contains(control.geometry().center());
}

bool isInReach(const QWidget& control)
{
    return control.isEnabled() && isInView(control) && !isCovered(control);
}

} // namespace toolkit
