// How the editors find rows.

#include "admin/editor.h"

#include "db/likeness.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

namespace admin {

using namespace std::chrono_literals;

namespace {

constexpr int lastTab = 99;

} // namespace

void Editor::addFindBar(const toolkit::TwipRect& place, double boxWidth, db::Fields searched)
{
    constexpr double captionWidth = 540;
    const double box = place.left + captionWidth;
    const double result = box + boxWidth + 120;
    const double textTop = place.top + 30;
    searched_ = searched;
    findCaption_ =
        label("findcaption", {place.left, textTop, captionWidth, place.height}, "Find:", {.hidden = true});
    findWords_ = textBox("findwords", {box, place.top, boxWidth, 285}, toolkit::TextBox::noLimit,
                         {.hidden = true, .tab = lastTab});
    findResult_ = label("findresult", {result, textTop, place.left + place.width - result, place.height}, "",
                        {.hidden = true});
    search_.setTimer(timer("search", 1ms, false));

    onTick(search_.timer(), [this] { searchOn(); });
    onChange(findWords_, [this] { dropSearch(); });
    onLostFocus(findWords_, [this] { dropSearch(); });
    onKeyPress(findWords_, [this](QChar character) {
        const bool enters = character == QChar::CarriageReturn;
        if (enters)
            findNext();
        return !enters;
    });
    addShortcut(Qt::CTRL | Qt::Key_F, &Editor::openFindBar);
    addShortcut(Qt::Key_F3, &Editor::findNext);
}

void Editor::addShortcut(const QKeySequence& keys, void (Editor::*handler)())
{
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, handler] {
        // A key that was pressed while the window was busy may come after the box that tells why.
        if (!QApplication::activeModalWidget())
            run([&] { (this->*handler)(); });
    });
}

void Editor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && findWords_->isVisible())
        run([this] { leaveFindBar(); });
    else
        AdminForm::keyPressEvent(event);
}

void Editor::showFindBar(bool shown)
{
    for (QWidget* control : std::initializer_list<QWidget*>{findCaption_, findWords_, findResult_})
        control->setVisible(shown);
}

void Editor::tellFinder(const QString& text)
{
    findResult_->setText(text);
    findWords_->setAccessibleDescription(text);
}

void Editor::openFindBar()
{
    showFindBar(true);
    focus(findWords_);
    findWords_->selectAll();
    tellFinder("Enter finds the next one, Esc closes.");
}

void Editor::findNext()
{
    const db::SearchWords words(findWords_->text());
    if (!findWords_->hasFocus() || words.isEmpty())
        openFindBar();
    if (words.isEmpty())
        return;
    if (adding) {
        tellFinder("SAVE or CANCEL the new one first.");
        return;
    }
    search_.begin(
        db::Round(rows, searched_), [words](const db::Passed& row) { return words.areIn(row.texts); },
        [this](const db::Passed* row) { found(row); });
    tellFinder("Searching");
}

void Editor::searchOn()
{
    tellFinder({});
    search_.slice();
    if (search_.isRunning())
        tellFinder(QString("Searching, %L1 passed. Esc ends it.").arg(search_.passed()));
}

void Editor::found(const db::Passed* row)
{
    if (!row) {
        tellFinder(QString("No %1 holds this.").arg(rowName_));
        return;
    }
    const db::Bookmark place = row->place;
    if (hasRow() && place.key == rows.key()) {
        tellFinder(QString("No other %1 holds this.").arg(rowName_));
        return;
    }
    const bool fromFirst = hasRow() && db::isBehind(rows.bookmark(), place);
    checkmodified();
    go([&] { rows.goTo(place); });
    tellFinder(fromFirst ? "Found, on from the first one." : "Found. F3 goes on.");
}

void Editor::dropSearch()
{
    search_.stop();
    tellFinder({});
}

void Editor::leaveFindBar()
{
    if (search_.isRunning()) {
        search_.stop();
        tellFinder("Search ended.");
        return;
    }
    showFindBar(false);
    resumeFocus();
}

} // namespace admin
