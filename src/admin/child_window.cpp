#include "admin/child_window.h"

#include <QFocusEvent>
#include <QMdiArea>

namespace admin {

ChildWindow::ChildWindow(toolkit::Form& form) : form_(form)
{
    setObjectName(form.name() + "Window");
    setWidget(&form);
    form.installEventFilter(this);
    for (auto* control : form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (control->focusPolicy() != Qt::NoFocus)
            control->installEventFilter(this);
    const bool fixed = form.minimumSize() == form.maximumSize();
    Qt::WindowFlags flags = Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                            Qt::WindowMinimizeButtonHint;
    flags.setFlag(fixed ? Qt::MSWindowsFixedSizeDialogHint : Qt::WindowMaximizeButtonHint);
    setWindowFlags(flags);
    connect(this, &QMdiSubWindow::windowStateChanged, this, &ChildWindow::settleFocus, Qt::QueuedConnection);
}

void ChildWindow::open(QMdiArea& workspace)
{
    const QSize size = form_.size();
    form_.setMinimumSize(size); // none of its controls is ever out of reach
    workspace.addSubWindow(this, windowFlags());
    form_.show();
    resize(size.grownBy(contentsMargins()));
    if (windowFlags().testFlag(Qt::WindowMaximizeButtonHint))
        setWindowState(Qt::WindowMaximized);
}

bool ChildWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &form_ && event->type() == QEvent::HideToParent && form_.isClosed()) {
        hide();
        deleteLater();
    }
    if (event->type() == QEvent::FocusIn && watched != &form_ &&
        isStray(*qobject_cast<QWidget*>(watched), static_cast<QFocusEvent*>(event)->reason())) {
        QMetaObject::invokeMethod(this, &ChildWindow::settleFocus, Qt::QueuedConnection);
        return true;
    }
    return QMdiSubWindow::eventFilter(watched, event);
}

// The library moves the focus on while it hides a window to change its state, and gives it to a control
// that it noted when the window was left some time ago.
bool ChildWindow::isStray(const QWidget& control, Qt::FocusReason reason) const
{
    const QWidget* const last = form_.lastFocused();
    if (!last || last == &control || !last->isEnabled())
        return false;
    return reason == Qt::OtherFocusReason || reason == Qt::ActiveWindowFocusReason || !control.isVisible();
}

void ChildWindow::settleFocus()
{
    if (!form_.isClosed() && !isMinimized() && mdiArea() && mdiArea()->activeSubWindow() == this)
        form_.resumeFocus();
}

} // namespace admin
