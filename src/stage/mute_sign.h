#pragma once

class QAbstractButton;
class QWidget;

namespace stage {

/// The small speaker beside the host, a child of `parent`: checked while the host is mute.
[[nodiscard]] QAbstractButton* makeMuteSign(QWidget& parent);

} // namespace stage
