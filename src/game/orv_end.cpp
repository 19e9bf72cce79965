#include "game/orv.h"

#include "toolkit/author.h"
#include "toolkit/screens.h"

namespace game {

namespace author = toolkit::author;

void Orv::orv_leave_Click()
{
    narrate(AtOnce, "Alert", state.playername + ", are you sure you want to leave the game at this stage?");
    if (confirm(state.playername + ", are you sure you want to leave"))
        enterClosingState();
}

void Orv::enterClosingState()
{
    eraseoptions->show();
    LL->setEnabled(false);
    question->setText("Total Prize Money Rs. " + state.ladder[state.questionnumber - 1]);
    announce(question->text());
    cmdokquit->show();
    focus(cmdokquit);
}

void Orv::orv_cmdokquit_GotFocus()
{
    if (cmdokquit->isVisible())
        narrate(AtOnce, "Announce",
                "This game was made by " + author::name + ". Please send your comments by e-mail to " +
                    author::email + ".");
}

void Orv::orv_cmdokquit_Click()
{
    screens().close("orv");
    screens().show("thank");
}

void Orv::Form_Unload()
{
    random->setEnabled(false);
    narrate(AtOnce, "", "Visit us at " + author::site + " for updates and more questions.");
    narrate(Queued, "Announce", "");
    notice("Thank you for playing. Visit " + author::site + " for updates and more questions.");
    screens().close("back");
}

/// A game that has not begun cannot start; one that has goes no further and keeps what was won so far.
void Orv::failed(const std::exception& failure)
{
    Form::failed(failure);
    if (isClosed())
        return;
    if (state.begun) {
        enterClosingState();
    } else {
        screens().close("orv");
        screens().show("thank");
    }
}

} // namespace game
