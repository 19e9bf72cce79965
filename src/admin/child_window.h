#pragma once

#include "toolkit/form.h"

#include <QMdiSubWindow>

namespace admin {

/// The window around a form inside the console, which makes it; it goes when the form does. It keeps the
/// focus on the control that had it last, whatever hides, minimises or leaves the window meanwhile.
class ChildWindow final : public QMdiSubWindow
{
public:
    explicit ChildWindow(toolkit::Form& form);

    /// Opens at the size of the form, maximised if that can be changed.
    void open(QMdiArea& workspace);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isStray(const QWidget& control, Qt::FocusReason reason) const;
    void settleFocus();

    toolkit::Form& form_;
};

} // namespace admin
