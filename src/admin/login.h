#pragma once

#include "admin/admin_form.h"
#include "db/recordset.h"
#include "toolkit/text_box.h"

namespace admin {

/// The administrator's login: opens the console to whoever gives the name and password of an account.
class Login final : public AdminForm
{
public:
    explicit Login(toolkit::Services services);

protected:
    void Form_Load() override;
    void Form_Activate() override { focus(username); }

private:
    bool login_username_KeyPress(QChar character);
    bool login_password_KeyPress(QChar character);
    void login_login_Click();
    void login_exit_Click();
    void openBank();

    std::unique_ptr<db::Connection> connection;
    db::Recordset accounts; ///< found by the last check

    toolkit::TextBox* username;
    toolkit::TextBox* password;
};

} // namespace admin
