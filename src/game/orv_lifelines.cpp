#include "game/orv.h"

#include "game/answers.h"
#include "game/fifty.h"
#include "game/poll.h"

namespace game {

using Icon = toolkit::Dialogs::Icon;

void Orv::orv_LL_Click()
{
    constexpr double step = 5;
    const bool open = state.lifelinespanel == Panel::Open;
    const double change = open ? -step : step;
    slide({{200, {.top = -change / 2, .height = change}}});
    state.lifelinespanel = open ? Panel::Closed : Panel::Open;
    showusedlifelines();
    announce(open ? "Lifelines put away" : "Lifelines in view");
}

// The statistics poll

void Orv::orv_lifeline1_Click()
{
    if (state.pollused) {
        const QString sorry = " Sorry! " + state.playername + " You have already used this lifeline";
        narrate(AtOnce, "Sad", sorry + "!");
        notice(sorry, Icon::Information);
        return;
    }
    state.pollused = true;
    showusedlifelines();
    std::array<PollOption, options> polled;
    for (int i = 0; i < options; ++i)
        polled[i] = {state.currentquestion.number(db::schema::tallies[i]), !option[i]->text().isEmpty()};
    const auto percentages = pollPercentages(polled);
    for (int i = 0; i < options; ++i)
        showShare(i, polled[i].shown, percentages[i]);
    hidepoll->hide();
    QStringList shares;
    for (const auto* share : pollpercent)
        if (!share->isHidden())
            shares << share->accessibleName();
    announce(shares.join("; "));
    narrate(AtOnce, "Think", "It would now be easier for you to select the answer!");
}

/// Sets a bar, which stays on its line, and the percentage under it.
void Orv::showShare(int i, bool shown, int percent)
{
    constexpr double twipsPerPercent = 15;
    pollbar[i]->setVisible(shown);
    pollpercent[i]->setVisible(shown);
    if (!shown)
        return;
    QRect bar = pollbar[i]->geometry();
    bar.setTop(bar.bottom() + 1 - toolkit::pixels(twipsPerPercent * percent));
    pollbar[i]->setGeometry(bar);
    if (percent == 100) // three digits would run into the next bar's share
        pollpercent[i]->setFont(toolkit::verdana(7.5, toolkit::Weight::Bold));
    pollpercent[i]->setText(QString("%1%").arg(percent));
    pollpercent[i]->setAccessibleName(QString("%1: %2%").arg(QChar('A' + i)).arg(percent));
    pollpercent[i]->move(bar.left(), pollpercent[i]->y());
}

// Ask a friend

void Orv::orv_lifeline2_Click()
{
    if (state.friendused) {
        refuseLifeline("Uncertain");
        return;
    }
    state.friendused = true;
    showusedlifelines();
    state.clockcount = 0;
    clock->show();
    clockback->show();
    announce("Ten seconds to ask a friend");
    lifelinetimer->setEnabled(true);
}

void Orv::orv_lifelinetimer_Timer()
{
    constexpr int seconds = 10;
    ++state.clockcount;
    clock->setText(QString("%1").arg(state.clockcount, 2));
    if (state.clockcount < seconds)
        return;
    lifelinetimer->setEnabled(false);
    clock->hide();
    clockback->hide();
    for (int beep = 0; beep < 4; ++beep)
        services().beeper.beep();
    narrate(AtOnce, "Announce", "Your time is over");
    notice(state.playername + ", your Time Is Over !", Icon::Information);
}

// Fifty-fifty

void Orv::orv_lifeline3_Click()
{
    if (state.fiftyused) {
        refuseLifeline("GestureDown");
        return;
    }
    state.fiftyused = true;
    showusedlifelines();
    const QString correctAnswer = state.currentquestion.text(db::schema::correctAnswer);
    std::array<bool, options> removable{};
    for (int i = 0; i < options; ++i)
        removable[i] = !option[i]->text().isEmpty() && !sameAnswer(answerOf(*option[i]), correctAnswer);
    for (const int k : removedOptions(removable, services().random))
        removeOption(k - 1);
    announce(optionsForReaders());
    narrate(AtOnce, "Think", "It would now be easier for you to select the answer!");
}

/// Says that ask a friend or fifty-fifty has been used; the poll has words of its own.
void Orv::refuseLifeline(const QString& animation)
{
    narrate(AtOnce, animation, " Sorry! " + state.playername + " You have already used this lifeline!");
    notice("Sorry! " + state.playername + ", you have already used this lifeline", Icon::Information);
}

} // namespace game
