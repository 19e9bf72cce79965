#include "admin/admin_form.h"

#include <QComboBox>
#include <QLineEdit>

namespace admin {

namespace {

/// The text of the nearest label on the left of a control.
QString captionOf(const QWidget& control)
{
    const toolkit::Label* nearest = nullptr;
    for (const auto* label : control.parentWidget()->findChildren<toolkit::Label*>()) {
        const bool sameRow =
            label->y() <= control.geometry().bottom() && control.y() <= label->geometry().bottom();
        if (sameRow && label->x() < control.x() && (!nearest || nearest->x() < label->x()))
            nearest = label;
    }
    return nearest ? nearest->text().remove(':') : QString();
}

} // namespace

void AdminForm::controlsDone()
{
    Form::controlsDone();
    for (auto* control : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (qobject_cast<QLineEdit*>(control) || qobject_cast<QComboBox*>(control))
            control->setAccessibleName(captionOf(*control));
}

} // namespace admin
