#pragma once

#include "admin/admin_form.h"
#include "toolkit/text_box.h"

namespace admin {

/// Replaces the password of an account whose present one is known.
class ChangePassword final : public AdminForm
{
public:
    explicit ChangePassword(toolkit::Services services);

private:
    void changepassword_Command1_Click();
    void changepassword_cancel_Click();
    [[nodiscard]] static bool replacePassword(const QString& name, const QString& present,
                                              const QString& replacement);

    toolkit::TextBox* username;
    toolkit::TextBox* password;
    toolkit::TextBox* newpassword;
    toolkit::TextBox* newpassword2;
};

} // namespace admin
