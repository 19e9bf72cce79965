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

    /// Shows the console and the screens named in it.
    void open(std::initializer_list<const char*> names);
    /// Does `steps` on a screen, separated by "; ": "name" presses a button, "name=text" types a text over
    /// what a box holds, "name#2" chooses the third entry of a list, "?words" looks for words, "wait" lets a
    /// second pass, and "!..." is done to the file behind the owner's back.
    void run(const QString& screen, const QString& steps);
    /// What was told since the last call, one a line: boxes as "Title: text" with a sign for the icon, what
    /// came of looking for words as "?text", and what is noted while a question is typed as "~text".
    std::string told();
    /// What an editor shows: texts, and the entries of its lists with a "*" at the chosen one.
    [[nodiscard]] std::string shown(const QString& screen) const;
    /// The buttons that are enabled, in alphabetical order, behind the name of what has the focus.
    [[nodiscard]] std::string mode(const QString& screen) const;
    /// The questions or messages of the bank.
    [[nodiscard]] std::string questions() const;
    [[nodiscard]] std::string messages() const;

    std::string answers; ///< 'y' or 'n' for each question to come

private:
    void find(const QString& screen, const QString& words);

    QStringList log_;
};

} // namespace admin
