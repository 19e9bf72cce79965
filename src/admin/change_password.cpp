#include "admin/change_password.h"

#include "admin/account.h"
#include "db/connection.h"
#include "toolkit/screens.h"

namespace admin {

namespace schema = db::schema;

ChangePassword::ChangePassword(toolkit::Services services)
    : AdminForm({.name = "changepassword",
                 .caption = "Change Passoword",
                 .width = 3435,
                 .height = 2640,
                 .border = toolkit::Border::FixedSingle},
                services)
{
    // clang-format off
    label("Label1", {240, 240, 1095, 255}, "Username:", {});
    username = textBox("username", {1800, 240, 1215, 285}, schema::accountLimit, {.tab = 1});
    label("Label2", {240, 720, 1215, 255}, "Password:", {});
    password = textBox("password", {1800, 720, 1215, 285}, schema::accountLimit, {.tab = 3});
    label("Label3", {240, 1200, 1335, 375}, "New Password:", {});
    newpassword = textBox("newpassword", {1800, 1200, 1215, 285}, schema::accountLimit, {.tab = 5});
    label("Label4", {240, 1680, 1455, 255}, "Retype Password:", {});
    newpassword2 = textBox("newpassword2", {1800, 1680, 1215, 285}, schema::accountLimit, {.tab = 7});
    auto* Command1 = button("Command1", {240, 2160, 1335, 375}, "&Change", {.tab = 8});
    auto* cancel = button("cancel", {1800, 2160, 1215, 375}, "Ca&ncel", {.tab = 9});
    // clang-format on
    controlsDone();
    for (toolkit::TextBox* box : {password, newpassword, newpassword2})
        box->setMasked();

    onClick(Command1, [this] { changepassword_Command1_Click(); });
    onClick(cancel, [this] { changepassword_cancel_Click(); });
}

void ChangePassword::changepassword_Command1_Click()
{
    const QString name = toolkit::trimmed(username->text());
    const QString present = toolkit::trimmed(password->text());
    const QString replacement = toolkit::trimmed(newpassword->text());
    const QString retyped = toolkit::trimmed(newpassword2->text());
    if (name.isEmpty() || present.isEmpty() || replacement.isEmpty() || retyped.isEmpty()) {
        notice(notEntered);
        focus(username);
    } else if (retyped != replacement) {
        services().dialogs.notice(this, "Orvanta", "Both New Passwords Do not match",
                                  toolkit::Dialogs::Icon::None);
        focus(newpassword2);
    } else if (replacePassword(name, present, replacement)) {
        notice("Password Changed Successfully");
        screens().close("changepassword");
    } else {
        notice(notValid);
        focus(password);
    }
}

bool ChangePassword::replacePassword(const QString& name, const QString& present, const QString& replacement)
{
    const auto connection = db::opendatabase();
    db::Recordset account;
    account.Open(db::statements::account(name, present), *connection, db::Lock::Optimistic);
    if (account.Eof() || account.Bof())
        return false;
    account.set(schema::password, replacement);
    account.Update();
    return true;
}

void ChangePassword::changepassword_cancel_Click()
{
    screens().close("changepassword");
}

} // namespace admin
