#pragma once

#include "rig/gaze.h"
#include "rig/picture.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPointer>
#include <QRegion>
#include <QWidget>

#include <functional>
#include <optional>

namespace stage {

class Balloon;

/// The figure with the balloon above it: a window beside the game form, which goes where the form goes and is
/// hidden with it, or a child over the form's lower right corner.
class Stage final : public QWidget
{
public:
    /// The form owns the stage; the figure must outlive it or be left alone by a last `leave`.
    Stage(QWidget& form, rig::Figure& figure, bool asWindow);
    ~Stage() override;
    /// From now on the host is to be seen whenever the form is.
    void enter();
    /// Never to be seen or to paint again.
    void leave();

    /// The figure in `pose`, and in the balloon the first `said` characters of `text`.
    void present(const rig::Pose& pose, const QString& text, qsizetype said);

    /// Where the question and the pointer are, seen from the figure's eyes.
    [[nodiscard]] rig::Sights sights() const;

    /// Looks again where the form is and whether windows are blended.
    void lookAround();

    /// Called when the stage comes to be seen or is hidden.
    void onVisibility(std::function<void()> handler) { visibility_ = std::move(handler); }
    /// Called when the user has had enough of the text in the balloon.
    void onSkip(std::function<void()> handler) { skip_ = std::move(handler); }
    /// Called when the user wants the host silent, or not any longer.
    void onMute(std::function<void(bool)> handler);
    void showMuted(bool muted);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] bool embedded() const { return !isWindow(); }
    void toggleMute(const QKeyEvent& key);
    /// A modal box takes the clicks and keys of all windows but its own, so the host becomes one of those.
    /// The window manager is not told: for it the host stays below the box.
    void joinBoxSoon();
    static void keepBelowBox();
    void followForm(QEvent::Type type);
    void showWithForm();
    void follow();
    void placeMute();
    /// Gives the figure that share of its full size, and the balloon what then is its room.
    void resizeTo(double scale);
    void resetPicture();
    void paintFigure();
    void updateShape();
    void shapeBalloon();
    /// `changed` is where the picture of the figure has changed.
    void shapeFigure(const QRect& changed);

    QWidget& form_;
    rig::Picture picture_; ///< the lower part of the stage, with the figure
    const QSize area_;     ///< of the figure with the room it needs around it, at full size
    Balloon* balloon_;
    QPointer<QAbstractButton> mute_;
    std::function<void()> visibility_;
    std::function<void()> skip_;
    bool entered_ = false;
    bool composited_ = true;
    double scale_ = 0; ///< of the full size
    std::optional<rig::Pose> pose_;
    QRegion shape_;
    QRegion balloonShape_;
    /// What of the stage belongs to the figure. While windows are blended it has some room around and is kept
    /// as long as it holds the figure, because the window manager is slow to take a new shape.
    QRegion figureShape_;
    /// From the form's right lower corner to the stage's left one, once the user has moved the host.
    std::optional<QPoint> offset_;
    std::optional<QPoint> pressed_; ///< where on the screen the mouse went down
    QPoint grabbed_;                ///< where the left lower corner was then
    bool dragged_ = false;
};

} // namespace stage
