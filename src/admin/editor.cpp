#include "admin/editor.h"

#include "toolkit/screens.h"

namespace admin {

Editor::Editor(toolkit::FormSettings settings, toolkit::Services services, QString rowName)
    : AdminForm(std::move(settings), services), rowName_(std::move(rowName))
{
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
    return !rows.Bof() && !rows.Eof();
}

bool Editor::requireRow()
{
    if (!hasRow()) {
        notice(QString("The question bank has no %1 yet. Press ADD, enter the first one and press SAVE.")
                   .arg(rowName_));
    }
    return hasRow();
}

void Editor::go(const std::function<void()>& move)
{
    const bool shown = hasRow();
    // Another program may have filled the table.
    shown ? move() : rows.MoveFirst();
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
        rows.MoveNext();
        if (rows.Eof())
            rows.MoveLast();
    });
}

void Editor::movePrevious()
{
    go([this] {
        rows.MovePrevious();
        if (rows.Bof())
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
