#pragma once

#include <QAbstractButton>

namespace stage {

/// The small speaker beside the host: checked while the host is mute.
class MuteSign final : public QAbstractButton
{
public:
    explicit MuteSign(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace stage
