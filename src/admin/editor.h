#pragma once

#include "admin/admin_form.h"
#include "admin/row_scan.h"
#include "toolkit/text_box.h"

namespace admin {

/// What the two editors share: rows of their own that four buttons walk along and a search leaps along, and
/// the mode in which the boxes hold a new row that is not in the table yet. A form of this kind that cannot
/// open its rows closes itself again.
class Editor : public AdminForm
{
protected:
    /// `rowName` is what a row is called in messages.
    Editor(toolkit::FormSettings settings, toolkit::Services services, QString rowName);

    /// Belongs into the table of controls: a bar to type in what is to be found in the fields `searched`. It
    /// comes with Ctrl+F and F3.
    void addFindBar(const toolkit::TwipRect& place, double boxWidth, db::Fields searched);
    /// Ends the table of controls, and gives the buttons that are named by signs a name for screen readers.
    void controlsDone();
    void openRows(const db::Query& query);
    /// There is a row to be shown: the table is not empty.
    [[nodiscard]] bool hasRow() const;
    /// As hasRow(); tells the owner if there is none.
    [[nodiscard]] bool requireRow();

    // The moves of the four buttons, which end by showing the row.
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();

    /// Comes before every move.
    virtual void checkmodified() {}

    /// Tells SAVE while browsing what is missing; false then.
    [[nodiscard]] bool requireAdding();
    /// Turns the mode with the buttons that go with it.
    void setAdding(bool on);

    /// Fills the boxes from the current row, or empties them if there is none.
    virtual void displayrow() = 0;

    void keyPressEvent(QKeyEvent* event) override;

    db::Recordset rows;
    bool adding = false;

    toolkit::Button* cmdadd = nullptr;
    toolkit::Button* cmdsave = nullptr;
    toolkit::Button* cmdupdate = nullptr;
    toolkit::Button* cmdcancel = nullptr;
    toolkit::Button* cmdfirst = nullptr;
    toolkit::Button* cmdprevious = nullptr;
    toolkit::Button* cmdnext = nullptr;
    toolkit::Button* cmdlast = nullptr;

private:
    void go(const std::function<void()>& move);

    void addShortcut(const QKeySequence& keys, void (Editor::*handler)());
    void showFindBar(bool shown);
    void tellFinder(const QString& text);
    void openFindBar();
    void findNext();
    void searchOn();
    void found(const db::Passed* row);
    void dropSearch();
    void leaveFindBar();

    QString rowName_;
    std::unique_ptr<db::Connection> connection_;

    toolkit::Label* findCaption_ = nullptr;
    toolkit::TextBox* findWords_ = nullptr;
    toolkit::Label* findResult_ = nullptr;
    db::Fields searched_;
    RowScan search_;
};

} // namespace admin
