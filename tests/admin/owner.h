#pragma once

#include "support/bank.h"
#include "support/stand.h"
#include "toolkit/choice_list.h"
#include "toolkit/text_box.h"

namespace admin {

/// The bank of an owner, there before the screens and after them.
struct Premises
{
    support::Bank bank;
};

/// An owner at the console's screens, working on a bank of its own.
class Owner : public Premises, public support::Stand
{
public:
    Owner();

    /// Shows the console and the screens named in it, or the login.
    void open(const QStringList& names);
    /// Does `steps` on a screen, separated by "; ": "name" presses a button, "name=text" types a text over
    /// what a box holds, "name#2" chooses the third entry of a list, "?words" looks for words, "wait" lets a
    /// second pass, and "!..." is done to the file behind the owner's back.
    void run(const QString& screen, const QString& steps);
    /// What was told since the last call, one a line: boxes as "Title: text" with a sign for the icon, what
    /// came of looking for words as "?text", and what is noted while a question is typed as "~text".
    QString told();
    /// What an editor shows, its lists with a "*" at the chosen entry; of other screens what has the focus.
    [[nodiscard]] QString shown(const QString& screen) const;
    /// The buttons that are enabled, in alphabetical order, behind the name of what has the focus.
    [[nodiscard]] QString mode(const QString& screen) const;
    /// What the bank holds of the things that a screen changes.
    [[nodiscard]] QString stored(const QString& screen) const;

    std::string answers; ///< 'y' or 'n' for each question to come

private:
    void find(const QString& screen, const QString& words);

    QStringList log_;
};

/// Each line of `table` is done by an owner of its own: "steps => told => shown => stored => mode", where
/// columns may be left out at the end; nothing stored means unchanged, "*" anything. A column is a list of
/// words from the vocabulary or of plain texts with " + " between them; "y" or "n" behind a question is its
/// answer, and
/// "*text" what has to be told among other things.
void expect(const QString& screen, const char* table);

} // namespace admin
