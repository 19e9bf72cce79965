#include "admin/admin_form.h"

#include <QComboBox>
#include <QLineEdit>

namespace admin {

namespace {

/// The nearest label on the left of a control.
toolkit::Label* captionOf(const QWidget& control)
{
    toolkit::Label* nearest = nullptr;
    for (auto* label : control.parentWidget()->findChildren<toolkit::Label*>()) {
        const bool sameRow =
            label->y() <= control.geometry().bottom() && control.y() <= label->geometry().bottom();
        if (sameRow && label->x() < control.x() && (!nearest || nearest->x() < label->x()))
            nearest = label;
    }
    return nearest;
}

} // namespace

void AdminForm::controlsDone()
{
    Form::controlsDone();
    for (auto* control : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        auto* caption = captionOf(*control);
        if (!caption || !(qobject_cast<QLineEdit*>(control) || qobject_cast<QComboBox*>(control)))
            continue;
        control->setAccessibleName(caption->text().remove(':'));
        caption->setBuddy(control); // the name of a list is what is chosen in it
    }
}

} // namespace admin
