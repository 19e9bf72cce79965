#include "admin/editor.h"

#include "toolkit/screens.h"

namespace admin {

Editor::Editor(toolkit::FormSettings settings, toolkit::Services services, QString rowName)
    : AdminForm(std::move(settings), services), rowName_(std::move(rowName))
{
}

void Editor::controlsDone()
{
    AdminForm::controlsDone();
    cmdfirst->setAccessibleName("First");
    cmdprevious->setAccessibleName("Previous");
    cmdnext->setAccessibleName("Next");
    cmdlast->setAccessibleName("Last");
}

void Editor::openRows(const db::Query& query)
{
    try {
        connection_ = db::opendatabase();
        rows.Open(query, *connection_, db::Lock::Optimistic);
        displayrow();
    } catch (const db::Failure&) {
        screens().close(name());
        throw;
    }
}

bool Editor::hasRow() const
{
    return rows.hasRow();
}

bool Editor::requireRow()
{
    const bool empty = rows.Bof() && rows.Eof();
    if (empty) {
        notice(QString("The question bank has no %1 yet. Press ADD, enter the first one and press SAVE.")
                   .arg(rowName_));
    }
    return !empty;
}

void Editor::go(const std::function<void()>& move)
{
    const bool shown = hasRow();
    try {
        move();
    } catch (const db::Failure&) {
        // Of two steps the first may have left the row that is shown.
        if (shown && !hasRow())
            displayrow();
        throw;
    }
    if (shown || hasRow())
        displayrow();
    (void)requireRow();
}

void Editor::moveFirst()
{
    go([this] { rows.MoveFirst(); });
}

void Editor::moveLast()
{
    go([this] { rows.MoveLast(); });
}

void Editor::moveNext()
{
    go([this] {
        // Another program may have filled a table that was empty.
        hasRow() ? rows.MoveNext() : rows.MoveFirst();
        if (!hasRow())
            rows.MoveLast();
    });
}

void Editor::movePrevious()
{
    go([this] {
        if (hasRow())
            rows.MovePrevious();
        if (!hasRow())
            rows.MoveFirst();
    });
}

bool Editor::requireAdding()
{
    if (!adding)
        notice("You have not added a new record");
    return adding;
}

void Editor::setAdding(bool on)
{
    adding = on;
    for (toolkit::Button* button : {cmdfirst, cmdprevious, cmdnext, cmdlast, cmdupdate, cmdadd})
        button->setEnabled(!on);
    cmdsave->setEnabled(true);
    cmdcancel->setEnabled(on);
}

} // namespace admin
