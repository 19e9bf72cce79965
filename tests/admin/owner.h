#pragma once

#include "support/stand.h"
#include "toolkit/choice_list.h"
#include "toolkit/text_box.h"

namespace admin {

/// An owner at the console's screens.
class Owner : public support::Stand
{
public:
    Owner();

    /// Shows the console and the screens named in it, or the login.
    void open(const QStringList& names);
    using Stand::shown;
    /// What an editor shows, its lists with a "*" at the chosen entry; of other screens what has the focus.
    [[nodiscard]] QString shown(const QString& screen) const;
    /// The buttons that are enabled, in alphabetical order, behind the name of what has the focus.
    [[nodiscard]] QString mode(const QString& screen) const;
    /// What the bank holds of the things that a screen changes.
    [[nodiscard]] QString stored(const QString& screen) const;

protected:
    /// Besides: "?words" looks for words and tells what came of it as "?text", and "wait" lets a second pass
    /// and tells what is noted meanwhile as "~text".
    void runStep(const QString& step, const QString& screen) override;
};

/// Each line of `table` is done by an owner of its own: "steps => told => shown => stored => mode", where
/// columns may be left out at the end; nothing stored means unchanged, "*" anything. A column is a list of
/// words from the vocabulary or of plain texts with " + " between them, and "*text" what has to be told among
/// what follows.
void expect(const QString& screen, const char* table);

} // namespace admin
