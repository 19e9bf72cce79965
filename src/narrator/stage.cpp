#include "narrator/stage.h"

#include "narrator/balloon.h"
#include "narrator/clicks.h"
#include "narrator/compositor.h"
#include "narrator/mute_sign.h"
#include "narrator/placement.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <utility>

namespace narrator {

namespace {

constexpr int sideMargin = 50;   ///< for spread arms and for the balloon, which is wider than the figure
constexpr int reach = 22;        ///< how far an arm gets out of the figure's own width
constexpr int headroom = 6;      ///< between balloon and figure
constexpr int footroom = 8;      ///< for the smoke below
constexpr int muteDistance = 46; ///< of the speaker sign from the middle of the smoke
constexpr int balloonHeight = 164;
constexpr int leastAlpha = 128; ///< without a compositor, what is fainter than this is not shown

constexpr Qt::WindowFlags hostWindowFlags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;

QSize stageSize(const Rig& rig)
{
    const QSize figure = rig.size.toSize();
    return {figure.width() + 2 * sideMargin, balloonHeight + headroom + figure.height() + footroom};
}

/// The pixels of `image` that are not faint, in its logical coordinates.
QRegion opaqueRegion(const QImage& image)
{
    const double ratio = image.devicePixelRatio();
    const QSize size = image.deviceIndependentSize().toSize();
    const auto column = [&](int x) {
        return std::min(static_cast<int>((x + 0.5) * ratio), image.width() - 1);
    };
    QList<QRect> runs;
    for (int y = 0; y < size.height(); ++y) {
        const int row = std::min(static_cast<int>((y + 0.5) * ratio), image.height() - 1);
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(row));
        for (int x = 0; x < size.width(); ++x) {
            const int start = x;
            while (x < size.width() && qAlpha(line[column(x)]) >= leastAlpha) {
                ++x;
            }
            if (x > start) {
                runs.append(QRect(start, y, x - start, 1));
            }
        }
    }
    QRegion region;
    region.setRects(runs.constData(), static_cast<int>(runs.size()));
    return region;
}

} // namespace

Stage::Stage(QWidget& form, Figure& figure)
    : QWidget(&form, windowsCanBePlaced() ? hostWindowFlags : Qt::WindowFlags(Qt::Widget)),
      form_(form),
      figure_(&figure)
{
    setObjectName(QStringLiteral("host"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet(QStringLiteral("* { background: transparent; border: none; }")); // whatever the form's says
    if (embedded()) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    } else {
        setAttribute(Qt::WA_TranslucentBackground);
    }
    const QSize size = stageSize(figure.rig());
    setFixedSize(size);
    balloon_ = new Balloon(QRect(2, 2, size.width() - 4, balloonHeight - 2), this);
    // As a child of the form the stage lets every click through, so the sign stands beside it.
    mute_ = new MuteSign(embedded() ? &form : this);
    placeMute();
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
    figure_ = nullptr;
    visibility_ = {};
    skip_ = {};
    if (mute_) {
        mute_->disconnect();
    }
    hide();
}

void Stage::present(const Frame& frame)
{
    const bool moved = pose_ != frame.pose;
    if (moved) {
        pose_ = frame.pose;
        drawFigure();
        update(QRect(0, balloonHeight, width(), height() - balloonHeight));
    }
    if (balloon_->say(frame.text, frame.said) || (moved && !composited_)) {
        updateShape();
    }
}

void Stage::onMute(std::function<void(bool)> handler)
{
    QObject::connect(mute_, &QAbstractButton::toggled, mute_, std::move(handler));
}

void Stage::showMuted(bool muted)
{
    mute_->setChecked(muted);
}

void Stage::lookAround()
{
    const bool composited = embedded() || compositorRuns();
    if (std::exchange(composited_, composited) != composited) {
        updateShape();
    }
    follow();
}

bool Stage::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        follow();
        break;
    case QEvent::Show:
    case QEvent::WindowStateChange:
        // The form is told before it is on the screen, where its host may not be first.
        QMetaObject::invokeMethod(this, &Stage::showWithForm, Qt::QueuedConnection);
        break;
    case QEvent::Hide:
        if (!embedded()) {
            hide();
        }
        break;
    case QEvent::KeyPress: // that nothing on the form has taken
        toggleMute(*static_cast<QKeyEvent*>(event));
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool Stage::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide) {
        return done;
    }
    if (mute_) {
        placeMute();
    }
    if (visibility_) {
        visibility_();
    }
    return done;
}

void Stage::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(QPoint(0, balloonHeight), image_);
}

void Stage::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->position().toPoint();
    dragged_ = false;
}

void Stage::mouseMoveEvent(QMouseEvent* event)
{
    if (!pressed_ || !(event->buttons() & Qt::LeftButton)) {
        return;
    }
    const QPoint way = event->position().toPoint() - *pressed_;
    dragged_ = dragged_ || way.manhattanLength() >= QApplication::startDragDistance();
    if (!dragged_) {
        return;
    }
    offset_ = pos() + way - form_.frameGeometry().bottomRight();
    follow();
}

void Stage::mouseReleaseEvent(QMouseEvent* event)
{
    const bool click = pressed_ && !dragged_;
    pressed_.reset();
    if (!click || clickThrough(form_, event->globalPosition().toPoint(), event->button())) {
        return;
    }
    if (balloon_->isVisible() && balloon_->geometry().contains(event->position().toPoint()) && skip_) {
        skip_();
    }
}

void Stage::toggleMute(const QKeyEvent& key)
{
    const bool plain = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (entered_ && key.key() == Qt::Key_M && plain && !key.isAutoRepeat()) {
        mute_->click();
    }
}

void Stage::showWithForm()
{
    const bool wanted = entered_ && (embedded() || (form_.isVisible() && !form_.isMinimized()));
    if (wanted && !isVisible()) {
        lookAround();
        updateShape();
        show();
        raise();
        // Some window managers put a window that appears late above an open message box.
        if (QWidget* box = QApplication::activeModalWidget()) {
            box->raise();
        }
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
    const QPoint place = offset_ ? keptOnScreen(frame.bottomRight() + *offset_, size(), available)
                                 : besideForm(frame, size(), available);
    if (place != pos()) {
        move(place);
    }
}

void Stage::placeMute()
{
    const QPoint place(width() / 2 + muteDistance, height() - mute_->height() - footroom);
    mute_->move(embedded() ? pos() + place : place);
    mute_->setVisible(!embedded() || !isHidden());
    mute_->raise();
}

void Stage::drawFigure()
{
    if (!figure_ || !pose_) {
        return;
    }
    const double ratio = devicePixelRatioF();
    const QSize area(width(), height() - balloonHeight);
    const QSize pixels = (QSizeF(area) * ratio).toSize();
    if (image_.size() != pixels) {
        image_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        image_.setDevicePixelRatio(ratio);
    }
    image_.fill(Qt::transparent);
    QPainter painter(&image_);
    painter.translate(sideMargin, headroom);
    figure_->paint(painter, *pose_, ratio);
}

void Stage::updateShape()
{
    if (embedded()) {
        return;
    }
    QRegion shape = figureShape();
    if (balloon_->isVisibleTo(this)) {
        QPainterPathStroker grown;
        grown.setWidth(composited_ ? 6 : 2);
        const QPainterPath outline = balloon_->outline();
        shape += QRegion(outline.united(grown.createStroke(outline)).toFillPolygon().toPolygon());
    }
    shape += QRegion(mute_->geometry(), QRegion::Ellipse);
    if (shape != shape_) {
        shape_ = shape;
        setMask(shape);
    }
}

QRegion Stage::figureShape() const
{
    if (!composited_ && !image_.isNull()) {
        return opaqueRegion(image_).translated(0, balloonHeight);
    }
    const int left = sideMargin - reach;
    return {left, balloonHeight, width() - 2 * left, height() - balloonHeight};
}

} // namespace narrator
