#include "invariants.h"

#include <algorithm>

namespace game {

using toolkit::Label;

void Spectator::watch(toolkit::Form& orv)
{
    form = &orv;
    opening = orv.bounds();
    for (QObject* child : orv.findChildren<QObject*>())
        controls.emplace(child->objectName(), child);
}

void Spectator::require(bool holds, const char* sentence)
{
    if (!holds && fault.empty())
        fault = sentence;
}

// What happens

std::string Spectator::press(const QString& control)
{
    const int k = control.right(1).toInt();
    if (control.startsWith("option")) {
        if (answer != Answer::None || covered())
            return "";
        chosen = k;
        return blank(k) ? "blank" : "lock";
    }
    if (control.startsWith("lifeline")) {
        if (std::exchange(taken.at(k - 1), true))
            return "used";
        pollShown = pollShown || k == 1;
        counting = counting || k == 2;
        fiftyQuestion = k == 3 ? question : fiftyQuestion;
    }
    lifelinesOpen = lifelinesOpen != (control == "LL");
    ladderOpen = ladderOpen != (control == "mws");
    if (control == "cmdok" && question == lastQuestion)
        return "champion";
    return control == "leave" ? "leave" : control == "cmdokquit" ? "farewell" : "";
}

void Spectator::resetOptions()
{
    answer = Answer::None;
    counting = false;
    pollShown = false;
}

std::string Spectator::boxOpens(const QString& text)
{
    const QString wrong = "Sorry! " + name + " But your Answer is wrong. The correct answer was ";
    const std::map<QString, std::string> boxes = {
        {"Please Enter your First Name ", "name"},
        {name + " shall I lock it?", "lock"},
        {name + ", are you sure you want to leave", "leave"},
        {"You cannot select a blank option", "blank"},
        {" Sorry! " + name + " You have already used this lifeline", "used"},
        {"Sorry! " + name + ", you have already used this lifeline", "used"},
        {wrong + (row ? row->correct : ""), "wrong"},
        {name + ", your Time Is Over !", "time over"},
        {"Congrulations!!! " + name, "champion"},
        {"You have won a crore Rupees!", "crore"},
    };
    const auto known = boxes.find(text);
    const std::string box = known == boxes.end() ? "farewell" : known->second;
    if (box == "farewell")
        require(text.contains("Visit ") && !std::exchange(unloading, true), "Only known boxes open.");
    if (box == "lock")
        answer = Answer::Asked;
    if (box == "time over")
        require(std::exchange(counting, false), "The time is over only when it has been counted.");
    return box;
}

void Spectator::boxCloses(const std::string& box, bool yes)
{
    if (box == "name")
        name = yes ? "Asha" : "";
    if (box == "lock") {
        ++row->tallies.at(chosen - 1);
        if (yes)
            answer = row->isRight(chosen) ? Answer::Right : Answer::Sorry;
        else
            resetOptions();
    }
    if (box == "wrong")
        answer = Answer::Wrong;
    const bool leaves = box == "leave" && yes;
    withdrawn = withdrawn || leaves;
    if (box == "wrong" || leaves) {
        quitOffered = true;
        const int kept = leaves ? question - 1 : won - won % questionsPerStep;
        headline = "Total Prize Money Rs. " + prizeLadder().at(kept);
    }
}

void Spectator::hear(const QString& hostRequest)
{
    const QString words = hostRequest.startsWith("Speak ") ? hostRequest.mid(6) : "";
    if (words.startsWith("Your question is"))
        hearQuestion(words);
    else if (words.startsWith("Total Prize Money Rupees "))
        hearPrize();
    lifelinesOpen = lifelinesOpen || words == "Try using the lifelines?";
    ladderOpen = ladderOpen || words.startsWith("You have currently won rupees ");
}

void Spectator::hearQuestion(const QString& words)
{
    const auto found = std::ranges::find_if(bank, [&](const BankRow& candidate) {
        const auto& [a, b, c, d] = candidate.answers;
        return words == "Your question is,," + candidate.question + ",,the four options are,,A," + a + ",B," +
                            b + ",C," + c + ",D," + d;
    });
    require(found != bank.end(), "The host reads out a question of the bank with its four answers.");
    if (found == bank.end())
        return;
    row = &*found;
    require(!asked.contains(row), "No question is asked twice in a game.");
    require(row->level == question / questionsPerStep + 1, "The level follows from the number.");
    require(won == question++, "A question follows only after all before it have been won.");
    asked.insert(row);
    headline = row->question;
    withdrawn = false;
    resetOptions();
}

void Spectator::hearPrize()
{
    require(answer == Answer::Right, "A prize is announced only for a right answer that has been locked.");
    won = std::min(won + 1, lastQuestion);
    stage = withRungMarked(stage, won);
    const QString prize = prizeLadder().at(won);
    headline = "Total Prize Money Rs. " + prize;
    if (won % questionsPerStep == 0) {
        ladderOpen = true;
        headline += "\nNow you will definately take away Rs. " + prize + " with you.";
    }
    if (won == lastQuestion)
        headline = "Congrulations You are now a Tazmir\nTotal Prize Money Rs. " + prize;
    resetOptions();
}

// What must hold

void Spectator::look()
{
    for (int k = 1; k <= 4; ++k)
        lookAtOption(k);
    require(fiftyQuestion == 0 || removed.size() == 2, "Fifty-fifty removes two answers.");

    const auto enabled = [&](const char* of) { return widget(of).isEnabled(); };
    const auto runs = [&](const char* of) { return control<toolkit::Timer>(of).isEnabled(); };
    require(shown("eraseoptions") == covered(), "The options are covered after a verdict or a withdrawal.");
    require(shown("cmdok") == announced(), "cmdok shows exactly from the prize to the next question.");
    require(shown("cmdokquit") == quitOffered, "cmdokquit shows after a wrong answer or a withdrawal.");
    require(enabled("leave") == !judged(), "WITHDRAW can be used exactly until the verdict.");
    require(enabled("LL") == !covered(), "The lifelines' bar can be used while the options are not covered.");
    require(runs("random") == !(judged() || unloading), "Prompts come until the verdict or the form's end.");
    require(runs("flash") == (answer == Answer::Right), "A right answer flashes from its lock to its prize.");
    require(shown("clock") == counting && shown("clockback") == counting && runs("lifelinetimer") == counting,
            "The clock runs and shows together.");
    require(shown("hidepoll") == !pollShown, "The poll shows until the options are reset.");
    for (int i = 0; i < 3; ++i) {
        const QString n = QString::number(i + 1);
        require(widget("lifeline" + n).isEnabled() == !announced(), "Lifelines work but after a prize.");
        require(shown("l" + n + "l1") == taken.at(i), "A lifeline is crossed out when it has been taken.");
        require(shown("l" + n + "l2") == taken.at(i), "A cross has two strokes.");
    }

    require(control<Label>("question").text() == headline, "The question or the amount won shows.");
    require(control<QPlainTextEdit>("stage").toPlainText().simplified() == stage.simplified(),
            "The ladder is marked up to the last question won, its amounts whole.");
    const double w = ladderOpen ? 2850 : 0;
    const double h = lifelinesOpen ? 1000 : 0;
    const toolkit::TwipRect bounds{opening.left - w / 2, opening.top - h / 2, 9030 + w, 6510 + h};
    require(form->bounds() == bounds, "The form has its opening bounds and those of the open panels.");
    const QWidget* focus = form->focusWidget();
    require(focus && !focus->isHidden() && focus->isEnabled(), "The focus is on a control that can be used.");
}

void Spectator::lookAtOption(int k)
{
    const auto& label = control<Label>(QString("option%1").arg(k));
    if (fiftyQuestion > 0 && removed.size() < 2 && label.text().isEmpty())
        removed.insert(k);
    const bool right = row && row->isRight(k);
    require(!blank(k) || !right, "Fifty-fifty removes wrong answers only.");
    const QString answerShown = row ? QString(QChar('A' + k - 1)) + "> " + row->answers.at(k - 1) : "";
    require(label.text() == (blank(k) ? "" : answerShown), "Options show the answers that are not removed.");

    const bool green = label.palette().window().color() == QColor(0, 192, 0);
    const char look = !label.isOpaque() ? '.' : green ? 'g' : 'c';
    const QString choice = k == chosen ? "c" : ".";
    const QString verdict = right ? "g" : choice;
    const QString looks[] = {".", choice, k == chosen ? ".gc" : ".", verdict, verdict};
    require(looks[static_cast<int>(answer)].contains(look),
            "Only the chosen option is lit, the right one turns green.");
}

} // namespace game
