#include "game/answers.h"
#include "game/draw.h"
#include "game/orv.h"

#include "db/statements.h"
#include "game/failures.h"
#include "toolkit/screens.h"

#include <utility>

namespace game {

using Icon = toolkit::Dialogs::Icon;
using toolkit::Shape;

namespace {

const QColor green(0, 192, 0);
constexpr qsizetype optionPrefix = 3; // "A> "

} // namespace

QString Orv::answerOf(const toolkit::Label& option)
{
    return option.text().mid(optionPrefix);
}

void Orv::orv_option_Click(int k)
{
    auto* chosen = option[k - 1];
    // The cover keeps the mouse away, but not what presses a control by its name.
    if (state.answered || eraseoptions->isVisible())
        return;
    if (chosen->text().isEmpty()) {
        notice("You cannot select a blank option", Icon::Information);
        return;
    }
    chosen->setOpaque(true);
    showSign(k, Shape::Kind::Lock, "chosen");
    state.answered = true;
    state.chosenanswer = answerOf(*chosen);
    lockanswer();
    recordchoice(k);
}

void Orv::lockanswer()
{
    services().random.reseed();
    const QString message = promptMessage();
    narrate(AtOnce, "", state.playername + "," + message);
    const bool locked = confirm(state.playername + " " + message);
    state.lockmessages.Close();
    if (!locked) {
        clearoptions();
        return;
    }
    const QString correctAnswer = state.currentquestion.text(db::schema::correctAnswer);
    if (!sameAnswer(state.chosenanswer, correctAnswer)) {
        judgeWrong(correctAnswer);
        return;
    }
    narrate(AtOnce, "Congratulate", "correct answer");
    startflash();
}

QString Orv::promptMessage()
{
    db::Recordset& messages = state.lockmessages;
    messages.Open(db::statements::promptMessages(), *state.connection, db::Lock::ReadOnly);
    int count = 0;
    for (messages.MoveFirst(); !messages.Eof(); messages.MoveNext())
        ++count;
    if (count == 0) {
        if (!state.toldOfMissingPrompts)
            notice(noPromptMessages(state.databasepath), Icon::Information);
        state.toldOfMissingPrompts = true;
        return "shall I lock your answer?";
    }
    const int picked = pickedRow(services().random.next(), count);
    messages.MoveFirst();
    messages.Move(picked);
    return messages.text(db::schema::message);
}

void Orv::judgeWrong(const QString& correctAnswer)
{
    for (int k = 1; k <= options; ++k) {
        auto* label = option[k - 1];
        if (!label->text().isEmpty() && sameAnswer(answerOf(*label), correctAnswer)) {
            label->setBackground(green);
            label->setOpaque(true);
            showSign(k, Shape::Kind::Tick, "right");
        } else if (label->isOpaque()) {
            showSign(k, Shape::Kind::Cross, "wrong");
        }
    }
    const QString sorry =
        "Sorry! " + state.playername + " But your Answer is wrong. The correct answer was " + correctAnswer;
    narrate(AtOnce, "Decline", sorry);
    narrate(Queued, "Congratulate_2", "Better luck next time");
    notice(sorry, Icon::Exclamation);
    eraseoptions->show();
    LL->setEnabled(false);
    question->setText("Total Prize Money Rs. " + state.safeamount);
    announce(question->text());
    random->setEnabled(false);
    cmdokquit->show();
    focus(cmdokquit);
    leave->setEnabled(false);
}

/// Adds the choice of option k to the question's tallies. The verdict stands even if that cannot be written.
void Orv::recordchoice(int k)
{
    const char* tally = db::schema::tallies[static_cast<std::size_t>(k) - 1];
    try {
        db::Recordset row;
        row.Open(db::statements::questionByKey(state.currentquestion.key()), *state.connection,
                 db::Lock::Optimistic);
        if (row.Eof()) {
            if (!std::exchange(state.toldOfRemovedQuestion, true))
                notice(questionRemoved(state.databasepath), Icon::Information);
            return;
        }
        row.set(tally, row.number(tally) + 1);
        row.Update();
        state.currentquestion = std::move(row);
    } catch (const db::Failure& failure) {
        // A bank for all players of a machine is one that they may not write: once a game will do.
        const bool isProtected = failure.cause() == db::Failure::Cause::ReadOnly;
        if (!isProtected || !std::exchange(state.toldOfProtectedBank, true))
            notice(failure.message(), Icon::Exclamation);
    }
}

void Orv::startflash()
{
    state.flashcount = 8;
    for (int k = 1; k <= options; ++k) {
        if (option[k - 1]->isOpaque()) {
            state.chosenoption = k;
            showSign(k, Shape::Kind::Tick, "right");
        }
    }
    flash->setEnabled(true);
}

void Orv::orv_flash_Timer()
{
    --state.flashcount;
    if (state.flashcount == -1) {
        flash->setEnabled(false);
        clearoptions();
        announceprize();
    }
    auto* chosen = option[state.chosenoption - 1];
    const bool lit = state.flashcount % 2 == 0;
    if (lit)
        chosen->setBackground(green);
    chosen->setOpaque(lit);
}

void Orv::announceprize()
{
    const int n = state.questionnumber;
    const QString& prize = state.ladder[n];
    markRung(n);
    eraseoptions->show();
    LL->setEnabled(false);
    if (n % questionsPerStep != 0) {
        question->setText("Total Prize Money Rs. " + prize);
        narrate(Queued, "RestPose", "Total Prize Money Rupees " + amountinwords(prize));
    } else {
        state.safeamount = prize;
        question->setText("Total Prize Money Rs. " + prize + "\nNow you will definately take away Rs. " +
                          state.safeamount + " with you.");
        narrate(Queued, "RestPose",
                "Total Prize Money Rupees " + amountinwords(prize) +
                    ".Now you will definately take away Rupees " + amountinwords(state.safeamount) +
                    " with you!!");
        if (state.statuspanel == Panel::Closed)
            orv_mws_Click();
    }
    for (auto* label : lifeline)
        label->setEnabled(false);
    random->setEnabled(false);
    cmdok->show();
    focus(cmdok);
    leave->setEnabled(false);
    if (n == lastQuestion)
        question->setText("Congrulations You are now a Tazmir\nTotal Prize Money Rs. " + prize);
    announce(question->text());
}

void Orv::orv_cmdok_Click()
{
    if (state.questionnumber != lastQuestion) {
        leave->setEnabled(true);
        for (auto* label : lifeline)
            label->setEnabled(true);
        eraseoptions->hide();
        LL->setEnabled(true);
        // Hidden with the focus, the button would pass it to WITHDRAW, and an Enter too many would leave.
        focus(LL);
        cmdok->hide();
        displayquestion();
        return;
    }
    narrate(AtOnce, "DoMagic1", "Congrulations!!! " + state.playername);
    narrate(Queued, "DoMagic2", "You have won a crore Rupees!");
    narrate(Queued, "Congratulate_2", "");
    notice("Congrulations!!! " + state.playername, Icon::Information);
    notice("You have won a crore Rupees!", Icon::Information);
    screens().close("orv");
    screens().show("thank");
}

} // namespace game
