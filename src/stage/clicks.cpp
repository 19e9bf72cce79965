#include "stage/clicks.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace stage {

bool clickThrough(QWidget& form, const QPoint& place, Qt::MouseButton button)
{
    const QPoint onForm = form.mapFromGlobal(place);
    if (!form.isVisible() || !form.rect().contains(onForm))
        return false;
    QWidget* below = form.childAt(onForm);
    const QPointer<QWidget> target(below ? below : &form);
    form.activateWindow();
    if (target->isEnabled() && (target->focusPolicy() & Qt::ClickFocus))
        target->setFocus(Qt::MouseFocusReason);
    const QPointF local = target->mapFromGlobal(QPointF(place));
    QMouseEvent press(QEvent::MouseButtonPress, local, place, button, button, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
    if (!target)
        return true;
    QMouseEvent release(QEvent::MouseButtonRelease, local, place, button, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(target, &release);
    return true;
}

} // namespace stage
