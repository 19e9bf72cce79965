#include "toolkit/form.h"

#include "toolkit/access.h"
#include "toolkit/choice_list.h"
#include "toolkit/desktop.h"
#include "toolkit/text_box.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace toolkit {

namespace {

Qt::WindowFlags flagsFor(Border border)
{
    if (border == Border::None)
        return Qt::Window | Qt::FramelessWindowHint;
    if (border == Border::Sizable)
        return Qt::Window;
    return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
}

} // namespace

QString element(const QString& name, int index)
{
    return QString("%1[%2]").arg(name).arg(index);
}

Form::Form(FormSettings settings, Services services)
    : QWidget(nullptr, flagsFor(settings.border)), settings_(std::move(settings)), services_(services)
{
    setObjectName(settings_.name);
    setWindowTitle(settings_.caption);
    setMouseTracking(true);
    describeToReaders();
    if (settings_.background) {
        QPalette changed = palette();
        changed.setColor(QPalette::Window, *settings_.background);
        setPalette(changed);
    }
    const TwipRect opening = openingBounds();
    if (settings_.placement == Placement::WindowDefault)
        resize(pixels(opening).size());
    else
        setBounds(opening);
    if (settings_.border != Border::Sizable)
        setFixedSize(size());
}

TwipRect Form::openingBounds() const
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    return {twips(screen.x()) + (twips(screen.width()) - settings_.width) / 2,
            twips(screen.y()) + (twips(screen.height()) - settings_.height) / 2, settings_.width,
            settings_.height};
}

TwipRect Form::bounds() const
{
    const QRect actual = geometry();
    const QRect expected = pixels(bounds_);
    TwipRect result = bounds_;
    if (actual.x() != expected.x())
        result.left = twips(actual.x());
    if (actual.y() != expected.y())
        result.top = twips(actual.y());
    if (actual.width() != expected.width())
        result.width = twips(actual.width());
    if (actual.height() != expected.height())
        result.height = twips(actual.height());
    return result;
}

void Form::setBounds(const TwipRect& bounds)
{
    bounds_ = bounds;
    setGeometry(pixels(bounds));
}

void Form::toggleFullScreen()
{
    // By its size alone, and a line more: some window managers lift a window that asks for the whole screen,
    // or has just its size, over the windows that are to stay above it.
    const QRect former = std::exchange(beforeFullScreen_, beforeFullScreen_.isNull() ? geometry() : QRect());
    const QRect place = former.isNull() ? screen()->geometry().adjusted(0, 0, 0, 1) : former;
    setFixedSize(place.size());
    move(place.topLeft());
}

void Form::load()
{
    run([this] { Form_Load(); });
}

void Form::activate()
{
    run([this] { Form_Activate(); });
}

void Form::unload()
{
    run([this] { Form_Unload(); });
}

void Form::closed()
{
    closed_ = true;
    for (Timer* timer : timers_)
        timer->setEnabled(false);
    hide();
}

void Form::run(const std::function<void()>& handler)
{
    if (closed_)
        return;
    try {
        handler();
    } catch (const std::exception& failure) {
        failed(failure);
    }
}

void Form::failed(const std::exception& failure)
{
    notice(QString::fromUtf8(failure.what()), Dialogs::Icon::Exclamation);
}

void Form::notice(const QString& text, Dialogs::Icon icon)
{
    services_.dialogs.notice(this, boxTitle(), text, icon);
}

bool Form::confirm(const QString& text)
{
    return services_.dialogs.confirm(this, boxTitle(), text);
}

void Form::onClick(Label* control, std::function<void()> handler)
{
    control->onClick = [this, handler = std::move(handler)] { run(handler); };
}

void Form::onClick(Button* control, std::function<void()> handler)
{
    connect(control, &QPushButton::clicked, this, [this, handler = std::move(handler)] { run(handler); });
}

void Form::onMouseMove(Label* control, std::function<void()> handler)
{
    control->onMouseMove = [this, handler = std::move(handler)] { run(handler); };
}

void Form::onChange(QCheckBox* control, std::function<void()> handler)
{
    connect(control, &QCheckBox::toggled, this, [this, handler = std::move(handler)] { run(handler); });
}

void Form::onChange(TextBox* control, std::function<void()> handler)
{
    connect(control, &QLineEdit::textChanged, this, [this, handler = std::move(handler)] { run(handler); });
}

void Form::onChange(ChoiceList* control, std::function<void()> handler)
{
    control->onChosen = [this, handler = std::move(handler)] { run(handler); };
}

void Form::onKeyPress(TextBox* control, std::function<bool(QChar)> handler)
{
    control->onKeyPress = [this, handler = std::move(handler)](QChar character) {
        bool passes = true;
        run([&] { passes = handler(character); });
        return passes;
    };
}

void Form::onTick(Timer* control, std::function<void()> handler)
{
    control->onTick([this, handler = std::move(handler)] { run(handler); });
}

void Form::onGotFocus(QWidget* control, std::function<void()> handler)
{
    gotFocus_.emplace_back(control, std::move(handler));
}

void Form::onLostFocus(QWidget* control, std::function<void()> handler)
{
    lostFocus_.emplace_back(control, std::move(handler));
}

void Form::focus(QWidget* control)
{
    control->setFocus(Qt::MouseFocusReason);
    // While a box has the keyboard no event tells of the focus inside this window.
    focusMoved(control);
}

void Form::focusMoved(QWidget* control)
{
    if (focused_ == control)
        return;
    const QWidget* const former = std::exchange(focused_, control);
    mark(control);
    const auto tell = [this](const FocusHandlers& handlers, const QWidget* whose) {
        for (const auto& [watched, handler] : handlers)
            if (watched == whose)
                run(handler);
    };
    tell(lostFocus_, former);
    tell(gotFocus_, control);
}

void Form::slide(std::initializer_list<SlideSteps> stretches)
{
    constexpr std::chrono::milliseconds framePause{16};
    constexpr int frames = 30;

    int total = 0;
    for (const SlideSteps& stretch : stretches)
        total += stretch.steps;
    const int stepsPerFrame = animationsWanted() ? std::max(1, total / frames) : total + 1;

    sliding_ = true;
    std::ranges::for_each(timers_, &Timer::hold);
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    TwipRect now = bounds();
    int done = 0;
    for (const SlideSteps& stretch : stretches) {
        for (int step = 0; step < stretch.steps; ++step) {
            now.left += stretch.change.left;
            now.top += stretch.change.top;
            now.width += stretch.change.width;
            now.height += stretch.change.height;
            if (++done % stepsPerFrame == 0) {
                setBounds(now);
                services_.clock.wait(framePause);
            }
        }
    }
    setBounds(now);
    setFixedSize(size());
    std::ranges::for_each(timers_, &Timer::release);
    sliding_ = false;
}

bool Form::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && isWindow())
        onWindowActivated();
    return QWidget::event(event);
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        focusMoved(qobject_cast<QWidget*>(watched));
    return QWidget::eventFilter(watched, event);
}

void Form::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (isWindow())
        setGround(*windowHandle(), palette().color(QPalette::Window));
}

// The window system asks; whether and when the window goes is the screen's business.
void Form::closeEvent(QCloseEvent* event)
{
    event->ignore();
    onCloseRequest();
}

void Form::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    run([this] { Form_GotFocus(); });
}

void Form::mouseMoveEvent(QMouseEvent*)
{
    run([this] { Form_MouseMove(); });
}

} // namespace toolkit
