#pragma once

class QWidget;

namespace toolkit {

/// A visible shape that is a cover lies over the middle of the control.
[[nodiscard]] bool isCovered(const QWidget& control);

/// The middle of the control lies within what its form shows at the moment.
[[nodiscard]] bool isInView(const QWidget& control);

/// A click on the middle of the control would reach it, as far as its own form is concerned.
[[nodiscard]] bool isInReach(const QWidget& control);

} // namespace toolkit
