#include "stage/stage.h"

#include "rig/silhouette.h"
#include "stage/balloon.h"
#include "stage/clicks.h"
#include "stage/mute_sign.h"
#include "stage/placement.h"
#include "toolkit/desktop.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace stage {

namespace {

constexpr int sideMargin = 50;   ///< for spread arms and for the balloon, which is wider than the figure
constexpr int headroom = 12;     ///< for leaps
constexpr int footroom = 8;      ///< for the smoke below
constexpr int muteDistance = 46; ///< of the speaker sign from the middle of the smoke
constexpr int balloonHeight = 164;
constexpr int letterPixels = 15; ///< in the balloon
constexpr int leastLetterPixels = 12;
constexpr double eyeLevel = 0.29; ///< as a share of the figure's height
constexpr double farAside = 250;  ///< from here on the eyes turn no further, in logical pixels

constexpr Qt::WindowFlags hostWindowFlags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;

/// The squares of a coarse grid in which anything of an image is to be seen, with a rim of squares around
/// them; in logical coordinates.
QRegion roomAround(const QImage& image)
{
    constexpr double square = 8; // in logical pixels
    const QSizeF size = image.deviceIndependentSize();
    const QSize squares(static_cast<int>(std::ceil(size.width() / square)),
                        static_cast<int>(std::ceil(size.height() / square)));
    QImage means = image.scaled(squares, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    means.setDevicePixelRatio(1);
    const QRegion seen = rig::silhouette(means, means.rect(), 1);
    const QRegion wide = seen + seen.translated(1, 0) + seen.translated(-1, 0);
    return QTransform::fromScale(size.width() / squares.width(), size.height() / squares.height())
        .map(wide + wide.translated(0, 1) + wide.translated(0, -1));
}

} // namespace

Stage::Stage(QWidget& form, rig::Figure& figure, bool asWindow)
    : QWidget(&form, asWindow ? hostWindowFlags : Qt::WindowFlags(Qt::Widget)),
      form_(form),
      picture_(figure),
      area_(figure.rig().size.toSize() + QSize(2 * sideMargin, headroom + footroom))
{
    setObjectName("host");
    setAccessibleName("Host");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setStyleSheet("* { background: transparent; border: none; }"); // whatever the form's says
    if (embedded())
        setAttribute(Qt::WA_TransparentForMouseEvents);
    else
        setAttribute(Qt::WA_TranslucentBackground);
    balloon_ = new Balloon({}, this);
    // As a child of the form the stage lets every click through, so the sign stands beside it.
    mute_ = makeMuteSign(embedded() ? form : *this);
    connect(mute_, &QAbstractButton::pressed, this, &Stage::keepBelowBox);
    resizeTo(1);
    form.installEventFilter(this);
    hide();
}

Stage::~Stage()
{
    delete mute_;
}

void Stage::enter()
{
    entered_ = true;
    showWithForm();
}

void Stage::leave()
{
    entered_ = false;
    form_.removeEventFilter(this);
    visibility_ = {};
    skip_ = {};
    if (mute_)
        mute_->disconnect();
    hide();
}

void Stage::present(const rig::Pose& pose, const QString& text, qsizetype said)
{
    if (balloon_->say(text, said)) {
        shapeBalloon();
        updateShape();
    }
    pose_ = pose;
    paintFigure();
}

void Stage::paintFigure()
{
    if (!pose_)
        return;
    if (picture_.image().devicePixelRatio() != devicePixelRatioF())
        resetPicture();
    const QRegion changed = picture_.show(*pose_);
    if (changed.isEmpty())
        return;
    shapeFigure(changed.boundingRect());
    updateShape();
    update(changed.boundingRect().translated(0, balloonHeight));
}

void Stage::onMute(std::function<void(bool)> handler)
{
    QObject::connect(mute_, &QAbstractButton::toggled, mute_, std::move(handler));
}

void Stage::showMuted(bool muted)
{
    mute_->setChecked(muted);
}

rig::Sights Stage::sights() const
{
    const double level = balloonHeight + (height() - balloonHeight) * eyeLevel;
    const QPointF eyes = mapToGlobal(QPointF(width() / 2.0, level));
    const auto towards = [&](const QPointF& place) {
        const QPointF way = (place - eyes) / farAside;
        return QPointF(std::clamp(way.x(), -1.0, 1.0), std::clamp(way.y(), -1.0, 1.0));
    };
    return {towards(form_.mapToGlobal(QPointF(form_.width() / 2.0, form_.height() / 4.0))),
            towards(QCursor::pos())};
}

void Stage::lookAround()
{
    composited_ = embedded() || toolkit::compositorRuns();
    figureShape_ = {};
    shapeBalloon();
    shapeFigure(picture_.area());
    updateShape();
    follow();
}

bool Stage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) // that nothing on the form, or in the box, has taken
        toggleMute(*static_cast<QKeyEvent*>(event));
    else if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
        joinBoxSoon();
    else if (watched == &form_)
        followForm(event->type());
    return QWidget::eventFilter(watched, event);
}

void Stage::followForm(QEvent::Type type)
{
    if (type == QEvent::Move || type == QEvent::Resize)
        follow();
    else if (type == QEvent::Show || type == QEvent::WindowStateChange)
        // The form is told before it is on the screen, where its host may not be first.
        QMetaObject::invokeMethod(this, &Stage::showWithForm, Qt::QueuedConnection);
    else if (type == QEvent::Hide && !embedded())
        hide();
}

bool Stage::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::WindowBlocked)
        joinBoxSoon();
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return done;
    if (mute_)
        placeMute();
    if (visibility_)
        visibility_();
    return done;
}

void Stage::joinBoxSoon()
{
    const auto join = [this] {
        QWidget* box = QApplication::activeModalWidget();
        if (box && box != &form_)
            box->installEventFilter(this);
        if (QWindow* window = windowHandle(); window && !embedded())
            window->setTransientParent((box ? box : &form_)->windowHandle());
    };
    QMetaObject::invokeMethod(this, join, Qt::QueuedConnection); // while it opens it is no box yet
}

void Stage::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(QPoint(0, balloonHeight), picture_.image());
}

// Some window managers put a window that appears late, or is clicked, above an open message box.
void Stage::keepBelowBox()
{
    if (QWidget* box = QApplication::activeModalWidget())
        box->raise();
}

void Stage::mousePressEvent(QMouseEvent* event)
{
    keepBelowBox();
    pressed_ = event->globalPosition().toPoint();
    grabbed_ = geometry().bottomLeft();
    dragged_ = false;
}

void Stage::mouseMoveEvent(QMouseEvent* event)
{
    if (!pressed_ || !(event->buttons() & Qt::LeftButton))
        return;
    // Where the pointer is on the stage says little: the stage has moved since the event was sent.
    const QPoint way = event->globalPosition().toPoint() - *pressed_;
    dragged_ = dragged_ || way.manhattanLength() >= QApplication::startDragDistance();
    if (!dragged_)
        return;
    offset_ = grabbed_ + way - form_.frameGeometry().bottomRight();
    follow();
}

void Stage::mouseReleaseEvent(QMouseEvent* event)
{
    const bool click = pressed_ && !dragged_;
    pressed_.reset();
    if (!click || clickThrough(form_, event->globalPosition().toPoint(), event->button()))
        return;
    if (balloon_->isVisible() && balloon_->geometry().contains(event->position().toPoint()) && skip_)
        skip_();
}

void Stage::toggleMute(const QKeyEvent& key)
{
    const bool plain = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (entered_ && key.key() == Qt::Key_M && plain && !key.isAutoRepeat())
        mute_->click();
}

void Stage::showWithForm()
{
    const bool wanted = entered_ && (embedded() || (form_.isVisible() && !form_.isMinimized()));
    if (wanted && !isVisible()) {
        if (!embedded())
            create(); // so that the window has its shape before it is shown
        lookAround();
        // A window manager that minimised the host along with the form would minimise both again.
        setWindowState(Qt::WindowNoState);
        if (QWindow* window = windowHandle())
            window->setTransientParent(form_.windowHandle()); // which the window manager is told now
        show();
        raise();
        joinBoxSoon();
        keepBelowBox();
    } else if (!wanted) {
        hide();
    }
}

void Stage::follow()
{
    if (embedded()) {
        move(form_.width() - width(), form_.height() - height());
        placeMute();
        return;
    }
    const QRect available = form_.screen()->availableGeometry();
    const QRect frame = form_.frameGeometry();
    resizeTo(scaleBeside(frame, area_.width(), available));
    const QPoint place =
        offset_ ? keptOnScreen(frame.bottomRight() + *offset_ - QPoint(0, height() - 1), size(), available)
                : besideForm(frame, size(), available);
    if (place != pos())
        move(place);
}

void Stage::placeMute()
{
    const QPoint place(width() / 2 + static_cast<int>(muteDistance * scale_),
                       height() - mute_->height() - static_cast<int>(footroom * scale_));
    mute_->move(embedded() ? pos() + place : place);
    mute_->setVisible(!embedded() || !isHidden());
    mute_->raise();
}

void Stage::resizeTo(double scale)
{
    if (scale == scale_)
        return;
    scale_ = scale;
    const QSize area = area_ * scale;
    setFixedSize(area.width(), balloonHeight + area.height());
    balloon_->setRoom(QRect(2, 2, width() - 4, balloonHeight - 2),
                      std::max(leastLetterPixels, static_cast<int>(letterPixels * scale)));
    placeMute();
    resetPicture();
    shapeBalloon();
    paintFigure();
    update();
}

void Stage::resetPicture()
{
    figureShape_ = {};
    const QTransform margins = QTransform::fromTranslate(sideMargin, headroom);
    picture_.reset(area_ * scale_, margins * QTransform::fromScale(scale_, scale_), devicePixelRatioF());
}

void Stage::updateShape()
{
    if (embedded())
        return;
    QRegion shape = figureShape_ + balloonShape_;
    shape += QRegion(mute_->geometry(), QRegion::Ellipse);
    QWindow* window = windowHandle();
    if (!window || shape == shape_)
        return;
    shape_ = shape;
    // A mask of the widget would have every frame painted line by line between its edges.
    window->setMask(shape);
}

void Stage::shapeBalloon()
{
    balloonShape_ = {};
    if (!balloon_->isVisibleTo(this))
        return;
    QPainterPathStroker grown;
    grown.setWidth(composited_ ? 6 : 2);
    const QPainterPath outline = balloon_->outline();
    balloonShape_ = QRegion(outline.united(grown.createStroke(outline)).toFillPolygon().toPolygon());
}

void Stage::shapeFigure(const QRect& changed)
{
    if (embedded() || changed.isEmpty())
        return;
    const QPoint place(0, balloonHeight);
    const QRegion seen = rig::silhouette(picture_.image(), changed, composited_ ? 1 : 128).translated(place);
    if (!composited_)
        figureShape_ = figureShape_ - changed.translated(place) + seen;
    else if (!(seen - figureShape_).isEmpty())
        figureShape_ = roomAround(picture_.image()).translated(place);
}

} // namespace stage
