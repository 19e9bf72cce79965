#include "admin/messages.h"

#include "admin/entry_checks.h"
#include "toolkit/screens.h"

namespace admin {

using Icon = toolkit::Dialogs::Icon;

Messages::Messages(toolkit::Services services)
    : Editor({.name = "messages",
              .caption = "Messages",
              .width = 4890,
              .height = 2460,
              .border = toolkit::Border::FixedSingle},
             services, "message")
{
    // clang-format off
    label("T", {120, 120, 4815, 675},
          "The Messages which you type in here appear to the costantent before locking the Answer."
          " They are displayed Randomly", {});
    label("Label1", {240, 1200, 975, 255}, "Message:", {});
    message = textBox("message", {1920, 1200, 1815, 285}, toolkit::TextBox::noLimit, {.tab = 0});
    cmdfirst = button("cmdfirst", {120, 1680, 615, 255}, "<<", {.tab = 1});
    cmdprevious = button("cmdprevious", {1080, 1680, 615, 255}, "<", {.tab = 2});
    cmdnext = button("cmdnext", {2040, 1680, 615, 255}, ">", {.tab = 3});
    cmdlast = button("cmdlast", {3000, 1680, 615, 255}, ">>", {.tab = 4});
    cmdcancel = button("cmdcancel", {3720, 1680, 855, 255}, "CANCEL", {.tab = 9});
    cmdadd = button("cmdadd", {120, 2040, 615, 255}, "&ADD", {.tab = 5});
    cmdupdate = button("cmdupdate", {1080, 2040, 1575, 255}, "&UPDATE", {.tab = 7});
    cmdsave = button("cmdsave", {3000, 2040, 615, 255}, "&SAVE", {.tab = 6});
    auto* cmdexit = button("cmdexit", {3960, 2040, 615, 255}, "E&XIT", {.tab = 8});
    addFindBar({120, 840, 4650, 300}, 1620, db::schema::messageFields);
    // clang-format on
    controlsDone();

    onClick(cmdfirst, [this] { moveFirst(); });
    onClick(cmdprevious, [this] { movePrevious(); });
    onClick(cmdnext, [this] { moveNext(); });
    onClick(cmdlast, [this] { moveLast(); });
    onClick(cmdadd, [this] { messages_cmdadd_Click(); });
    onClick(cmdsave, [this] { messages_cmdsave_Click(); });
    onClick(cmdupdate, [this] { messages_cmdupdate_Click(); });
    onClick(cmdcancel, [this] { messages_cmdcancel_Click(); });
    onClick(cmdexit, [this] { messages_cmdexit_Click(); });
}

void Messages::Form_Load()
{
    openRows(db::statements::promptMessages());
}

void Messages::displaymessage()
{
    message->setText(hasRow() ? rows.text(db::schema::message) : QString());
}

void Messages::messages_cmdadd_Click()
{
    message->clear();
    setAdding(true);
    focus(message);
}

void Messages::messages_cmdsave_Click()
{
    if (!requireAdding())
        return;
    if (const QString faults = faultsOfMessage(message->text()); !faults.isEmpty()) {
        notice(faults);
        return;
    }
    rows.AddNew();
    rows.set(db::schema::message, message->text());
    rows.Update();
    notice("Successfully Saved", Icon::Information);
    setAdding(false);
}

void Messages::messages_cmdupdate_Click()
{
    if (!requireRow())
        return;
    if (toolkit::trimmed(message->text()).isEmpty()) {
        notice("Can't be left empty", Icon::Information);
        return;
    }
    rows.set(db::schema::message, message->text());
    rows.Update();
    notice("Updated", Icon::Information);
}

void Messages::messages_cmdcancel_Click()
{
    displaymessage();
    setAdding(false);
}

void Messages::messages_cmdexit_Click()
{
    screens().close("messages");
}

} // namespace admin
