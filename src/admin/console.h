#pragma once

#include "admin/admin_form.h"

class QMdiArea;
class QMenu;
class QMenuBar;

namespace admin {

/// The console: a window with menus, and inside it the windows of the question editor, the message editor
/// and the change of password.
class Console final : public AdminForm
{
public:
    explicit Console(toolkit::Services services);

    void showInside(Form& child) override;

protected:
    void Form_Unload() override { admin_MDIForm_Unload(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler);

    void admin_add_Click();
    void admin_exit_Click();
    void admin_cnangepassword_Click();
    void admin_message_Click();
    void admin_MDIForm_Unload();

    QMenuBar* menus_;
    QMdiArea* workspace_;
};

} // namespace admin
