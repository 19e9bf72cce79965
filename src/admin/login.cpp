#include "admin/login.h"

#include "admin/account.h"
#include "toolkit/screens.h"

namespace admin {

namespace schema = db::schema;

using toolkit::verdana;
using toolkit::Weight;

Login::Login(toolkit::Services services)
    : AdminForm({.name = "login",
                 .caption = "Orvanta",
                 .width = 7050,
                 .height = 2595,
                 .border = toolkit::Border::FixedSingle},
                services)
{
    // clang-format off
    label("Label1", {240, 120, 6375, 495}, "ORVANTA", {.font = verdana(20.25, Weight::Bold), .centred = true});
    label("Label2", {600, 840, 5415, 255}, "ADMINISTRATIVE LOGIN. LEAVE IF NOT OWNER",
          {.font = verdana(9.75, Weight::Bold), .centred = true});
    username = textBox("username", {2640, 1440, 1695, 285}, schema::accountLimit, {.tab = 7});
    password = textBox("password", {2640, 1920, 1695, 285}, schema::accountLimit, {.tab = 3});
    auto* login = button("login", {4560, 1440, 1215, 255}, "&Login", {.tab = 5});
    auto* exit = button("exit", {4560, 1920, 1215, 255}, "E&xit", {.tab = 6});
    label("Label3", {720, 1440, 1695, 375}, "Username:", {.rightAligned = true});
    label("Label4", {1680, 1920, 975, 375}, "Password", {});
    frame("Frame1", {600, 1080, 5415, 1335}, "User Authorisation");
    // clang-format on
    controlsDone();
    password->setMasked();

    onKeyPress(username, [this](QChar character) { return login_username_KeyPress(character); });
    onKeyPress(password, [this](QChar character) { return login_password_KeyPress(character); });
    onClick(login, [this] { login_login_Click(); });
    onClick(exit, [this] { login_exit_Click(); });
}

void Login::openBank()
{
    auto opened = db::opendatabase();
    opened->require(schema::users);
    connection = std::move(opened);
}

void Login::Form_Load()
{
    openBank();
}

bool Login::login_username_KeyPress(QChar character)
{
    return character != QChar::Space;
}

bool Login::login_password_KeyPress(QChar character)
{
    if (character == QChar::CarriageReturn)
        login_login_Click();
    return true;
}

void Login::login_login_Click()
{
    const QString name = toolkit::trimmed(username->text());
    const QString secret = toolkit::trimmed(password->text());
    if (name.isEmpty() || secret.isEmpty()) {
        notice(notEntered);
        focus(username);
        return;
    }
    // The bank may have been put in its place since the screen told that it is missing.
    if (!connection)
        openBank();
    accounts = connection->Execute(db::statements::account(name, secret));
    if (!accounts.Eof() && !accounts.Bof()) {
        screens().close("login");
        screens().show("admin");
        return;
    }
    notice(notValid);
    focus(password);
}

void Login::login_exit_Click()
{
    screens().close("login");
    screens().show("userselect");
}

} // namespace admin
