#include "invariants.h"

#include "game/ladder.h"
#include "toolkit/twips.h"

#include <algorithm>
#include <cmath>

namespace game {

using Answer = Story::Answer;
using toolkit::element;
using toolkit::Label;
using toolkit::Timer;

namespace {

template <typename Control>
Control* find(const toolkit::Form& form, const QString& name)
{
    for (QObject* child : form.findChildren<QObject*>(name)) {
        if (auto* found = dynamic_cast<Control*>(child))
            return found;
    }
    throw std::out_of_range("no such control: " + name.toStdString());
}

bool shown(const QWidget* control)
{
    return !control->isHidden();
}

template <typename Condition>
bool forAllOptions(Condition holds)
{
    return holds(1) && holds(2) && holds(3) && holds(4);
}

QString safeAmount(const Story& story)
{
    return prizeLadder().at(story.won - story.won % questionsPerStep);
}

} // namespace

Scene::Scene(const toolkit::Form& orv) : form(&orv), opening(orv.bounds())
{
    for (int i = 0; i < 4; ++i) {
        option.at(i) = find<Label>(orv, QStringLiteral("option%1").arg(i + 1));
        pollbar.at(i) = widget(element("pollbar", i));
        pollpercent.at(i) = find<Label>(orv, element("pollpercent", i));
    }
    for (int i = 0; i < 3; ++i) {
        lifeline.at(i) = widget(QStringLiteral("lifeline%1").arg(i + 1));
        for (int stroke = 0; stroke < 2; ++stroke)
            cross.at(i).at(stroke) = widget(QStringLiteral("l%1l%2").arg(i + 1).arg(stroke + 1));
    }
    question = find<Label>(orv, "question");
    clock = find<Label>(orv, "clock");
    stage = find<QPlainTextEdit>(orv, "stage");
    clockback = widget("clockback");
    hidepoll = widget("hidepoll");
    eraseoptions = widget("eraseoptions");
    cmdok = widget("cmdok");
    cmdokquit = widget("cmdokquit");
    leave = widget("leave");
    LL = widget("LL");
    mws = widget("mws");
    random = find<Timer>(orv, "random");
    flash = find<Timer>(orv, "flash");
    lifelinetimer = find<Timer>(orv, "lifelinetimer");
}

QWidget* Scene::widget(const QString& name) const
{
    return find<QWidget>(*form, name);
}

char Scene::look(int k) const
{
    const Label& label = *option.at(k - 1);
    if (!label.isOpaque())
        return '.';
    return label.palette().window().color() == QColor(0, 192, 0) ? 'g' : 'c';
}

// What happens

Box Story::press(const QString& control, const Scene& scene)
{
    if (control.startsWith("option")) {
        if (answer != Answer::None || covered())
            return Box::None;
        chosen = control.last(1).toInt();
        return scene.blank(chosen) ? Box::Blank : Box::Lock;
    }
    if (control.startsWith("lifeline")) {
        const int k = control.last(1).toInt();
        if (taken.at(k - 1))
            return Box::Used;
        takeLifeline(k, scene);
    }
    if (control == "LL")
        lifelinesOpen = !lifelinesOpen;
    if (control == "mws")
        ladderOpen = !ladderOpen;
    if (control == "leave")
        return Box::Leave;
    if (control == "cmdokquit")
        return Box::Farewell;
    return control == "cmdok" && question == lastQuestion ? Box::Champion : Box::None;
}

void Story::takeLifeline(int k, const Scene& scene)
{
    taken.at(k - 1) = true;
    if (k == 2)
        counting = true;
    if (k == 3)
        fiftyQuestion = question;
    if (k != 1)
        return;
    pollShown = true;
    int total = 0;
    for (int i = 0; i < 4; ++i)
        total += scene.blank(i + 1) ? 0 : row->tallies.at(i);
    for (int i = 0; i < 4; ++i) {
        const double share = total == 0 ? 0 : 100.0 * row->tallies.at(i) / total;
        shares.at(i) = scene.blank(i + 1) ? -1 : static_cast<int>(std::nearbyint(share));
    }
}

void Story::seeRemoved(const Scene& scene)
{
    for (int k = 1; k <= 4; ++k) {
        if (scene.blank(k))
            removed.insert(k);
    }
}

void Story::resetOptions()
{
    answer = Answer::None;
    counting = false;
    pollShown = false;
}

Box Story::boxOpens(const QString& text)
{
    const auto isLock = [&](const QString& message) { return text == name + " " + message; };
    if (text == "Please Enter your First Name ")
        return Box::Name;
    if (std::ranges::any_of(messages, isLock)) {
        answer = Answer::Asked;
        return Box::Lock;
    }
    if (text == name + ", are you sure you want to leave")
        return Box::Leave;
    if (text == "You cannot select a blank option")
        return Box::Blank;
    if (text == " Sorry! " + name + " You have already used this lifeline" ||
        text == "Sorry! " + name + ", you have already used this lifeline")
        return Box::Used;
    if (row && text == "Sorry! " + name + " But your Answer is wrong. The correct answer was " + row->correct)
        return Box::Sorry;
    if (text == name + ", your Time Is Over !") {
        if (!counting)
            fault = "The time is over only when it has been counted.";
        counting = false;
        return Box::TimeOver;
    }
    if (text == "Congrulations!!! " + name)
        return Box::Champion;
    if (text == "You have won a crore Rupees!")
        return Box::Crore;
    if (!text.contains("Visit ") || unloading)
        return Box::Unknown;
    unloading = true;
    return Box::Farewell;
}

void Story::boxCloses(Box box, bool yes)
{
    if (box == Box::Lock) {
        ++row->tallies.at(chosen - 1);
        if (!yes)
            resetOptions();
        else
            answer = row->isRight(chosen) ? Answer::Right : Answer::Sorry;
    }
    if (box == Box::Leave && yes) {
        withdrawn = true;
        quitOffered = true;
        headline = "Total Prize Money Rs. " + prizeLadder().at(question - 1);
    }
    if (box == Box::Sorry) {
        answer = Answer::Wrong;
        quitOffered = true;
        headline = "Total Prize Money Rs. " + safeAmount(*this);
    }
}

void Story::hear(const QString& hostRequest)
{
    if (!hostRequest.startsWith("Speak "))
        return;
    const QString words = hostRequest.mid(6);
    if (words.startsWith("Your question is"))
        hearQuestion(words);
    else if (words.startsWith("Total Prize Money Rupees "))
        hearPrize();
    else
        hearPrompt(words);
}

void Story::hearQuestion(const QString& words)
{
    const auto asks = [&](const BankRow& candidate) {
        const auto& [a, b, c, d] = candidate.answers;
        return words == "Your question is,," + candidate.question + ",,the four options are,,A," + a + ",B," +
                            b + ",C," + c + ",D," + d;
    };
    const auto found = std::ranges::find_if(*bank, asks);
    const int before = question++;
    if (found == bank->end())
        fault = "The host reads out a question of the bank with its four answers.";
    else if (asked.contains(found->id))
        fault = "No question is asked twice in a game.";
    else if (found->level.toInt() != before / questionsPerStep + 1)
        fault = "The level of a question follows from its number.";
    else if (won != before)
        fault = "A question follows only after all before it have been won.";
    if (!fault.empty())
        return;
    row = &*found;
    asked.insert(row->id);
    headline = row->question;
    withdrawn = false;
    resetOptions();
}

void Story::hearPrize()
{
    if (answer != Answer::Right)
        fault = "A prize is announced only for a right answer that has been locked.";
    ++won;
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

void Story::hearPrompt(const QString& words)
{
    if (words == "Your time is over")
        return;
    struct Prompt
    {
        QString opening;
        QString rest;
        bool fits = true;
        bool* opens = nullptr;
    };
    const Prompt prompts[] = {
        {"You don't know the answer?", ""},
        {"are you still thinking?", ""},
        {"Are you confused?", ""},
        {"Try using the lifelines?", "", true, &lifelinesOpen},
        {"you have reached question number ", QString::number(question)},
        {"The minimum amount that you can take if you loose now is ", amountinwords(safeAmount(*this))},
        {"You have currently won rupees ", amountinwords(prizeLadder().at(std::max(question - 1, 0))) + "!",
         true, &ladderOpen},
        {"Try using Statistics poll", "!!", !taken[0]},
        {"Do you wish to use ask a friend lifeline", "!!", !taken[1]},
        {"Try fifty fifty lifeline", "!!", !taken[2]},
        {"You have answered ", QStringLiteral("%1 questions correctly!").arg(question - 1)},
    };
    const auto* const said =
        std::ranges::find_if(prompts, [&](const Prompt& prompt) { return words.startsWith(prompt.opening); });
    if (said == std::end(prompts))
        return;
    if (words != said->opening + said->rest || !said->fits)
        fault = "A prompt speaks of the game as it stands.";
    if (question == 0 || judged() || unloading)
        fault = "Nobody is prompted before the first question, after a verdict or while the form goes.";
    if (said->opens && !*said->opens) {
        *said->opens = true;
        ++panelsOpenedByPrompts;
    }
}

// What must hold

namespace {

bool looksFit(const Scene& scene, const Story& story)
{
    return forAllOptions([&](int k) {
        const char look = scene.look(k);
        switch (story.answer) {
        case Answer::None:
            return look == '.';
        case Answer::Asked:
            return look == (k == story.chosen ? 'c' : '.');
        case Answer::Right:
            return look == '.' || k == story.chosen;
        default:
            return look == (story.row->isRight(k) ? 'g' : k == story.chosen ? 'c' : '.');
        }
    });
}

bool captionsFit(const Scene& scene, const Story& story)
{
    return forAllOptions([&](int k) {
        QString expected;
        if (story.row && !(story.fiftyQuestion == story.question && story.removed.contains(k)))
            expected = QChar('A' + k - 1) + QStringLiteral("> ") + story.row->answers.at(k - 1);
        return scene.option.at(k - 1)->text() == expected;
    });
}

bool removalsFit(const Scene&, const Story& story)
{
    if (story.fiftyQuestion == 0 || story.fiftyQuestion != story.question)
        return true;
    const bool noneRight = std::ranges::none_of(story.removed, [&](int k) { return story.row->isRight(k); });
    return noneRight && story.removed.size() == 2;
}

bool pollFits(const Scene& scene, const Story& story)
{
    constexpr int ground = 3015 / 15;
    return !story.taken[0] || forAllOptions([&](int k) {
        const QWidget* bar = scene.pollbar.at(k - 1);
        const Label* percent = scene.pollpercent.at(k - 1);
        const int share = story.shares.at(k - 1);
        if (share < 0)
            return !shown(bar) && !shown(percent);
        return shown(bar) && shown(percent) && bar->height() == share && bar->y() + share == ground &&
               percent->x() == bar->x() && percent->text() == QStringLiteral("%1%").arg(share);
    });
}

bool marksFit(const Scene& scene, const Story& story)
{
    const QStringList lines = scene.stage->toPlainText().split('\n', Qt::SkipEmptyParts);
    if (lines.size() != lastQuestion)
        return false;
    for (int rung = 1; rung <= lastQuestion; ++rung) {
        const QString& line = lines[lastQuestion - rung];
        const QString amount = line.section('>', 1);
        const bool marked = amount.contains('X');
        if (line.section('>', 0, 0).toInt() != rung || marked != (rung <= story.won) ||
            QString(amount).remove('X').trimmed() != prizeLadder().at(rung))
            return false;
    }
    return true;
}

bool boundsFit(const Scene& scene, const Story& story)
{
    toolkit::TwipRect expected{scene.opening.left, scene.opening.top, 9030, 6510};
    if (story.lifelinesOpen) {
        expected.top -= 500;
        expected.height += 1000;
    }
    if (story.ladderOpen) {
        expected.left -= 1425;
        expected.width += 2850;
    }
    return scene.form->bounds() == expected;
}

bool crossesFit(const Scene& scene, const Story& story)
{
    for (std::size_t i = 0; i < scene.cross.size(); ++i) {
        for (const QWidget* stroke : scene.cross.at(i)) {
            if (shown(stroke) != story.taken.at(i))
                return false;
        }
    }
    return true;
}

bool clockFits(const Scene& scene, const Story& story)
{
    const bool on = story.counting;
    return shown(scene.clock) == on && shown(scene.clockback) == on && scene.lifelinetimer->isEnabled() == on;
}

bool lifelinesFit(const Scene& scene, const Story& story)
{
    return std::ranges::all_of(
        scene.lifeline, [&](const QWidget* label) { return label->isEnabled() == !story.announced(); });
}

bool focusFits(const Scene& scene, const Story&)
{
    const QWidget* focus = scene.form->focusWidget();
    return focus && shown(focus) && focus->isEnabled();
}

struct Invariant
{
    const char* sentence;
    bool (*holds)(const Scene&, const Story&);
};

constexpr Invariant invariants[] = {
    {"Options are plain until one is chosen; the right one alone turns green.", looksFit},
    {"Options show the four answers of the question but for those that fifty-fifty removed.", captionsFit},
    {"Fifty-fifty removes two wrong answers.", removalsFit},
    {"The question's label shows the question or the amount that was won last.",
     [](const Scene& scene, const Story& story) { return scene.question->text() == story.headline; }},
    {"The options are covered exactly after a verdict or a withdrawal.",
     [](const Scene& scene, const Story& story) { return shown(scene.eraseoptions) == story.covered(); }},
    {"cmdok shows exactly from the prize to the next question.",
     [](const Scene& scene, const Story& story) { return shown(scene.cmdok) == story.announced(); }},
    {"cmdokquit shows exactly once the answer was wrong or the contestant has withdrawn.",
     [](const Scene& scene, const Story& story) { return shown(scene.cmdokquit) == story.quitOffered; }},
    {"WITHDRAW can be used exactly until the verdict.",
     [](const Scene& scene, const Story& story) { return scene.leave->isEnabled() == !story.judged(); }},
    {"The lifelines' bar can be used exactly while the options are not covered.",
     [](const Scene& scene, const Story& story) { return scene.LL->isEnabled() == !story.covered(); }},
    {"Lifelines can be used at any time but between a prize and the next question.", lifelinesFit},
    {"A lifeline is crossed out exactly when it has been taken.", crossesFit},
    {"The prompt timer runs exactly until the verdict or until the form goes.",
     [](const Scene& scene, const Story& story) {
         return scene.random->isEnabled() == !(story.judged() || story.unloading);
     }},
    {"The flash timer runs exactly from the lock of a right answer to its prize.",
     [](const Scene& scene, const Story& story) {
         return scene.flash->isEnabled() == (story.answer == Answer::Right);
     }},
    {"The clock, its disc and its timer go together, from the call of the friend to its end.", clockFits},
    {"The poll is covered unless it was taken since the options were last reset.",
     [](const Scene& scene, const Story& story) { return shown(scene.hidepoll) == !story.pollShown; }},
    {"The bars of the poll stand on their line and show the tallies it found.", pollFits},
    {"The ladder is marked up to the last question won, its amounts whole.", marksFit},
    {"The form has its opening bounds and those of the open panels.", boundsFit},
    {"The focus is on a control that is shown and enabled.", focusFits},
};

} // namespace

std::string brokenInvariant(const Scene& scene, const Story& story)
{
    if (!story.fault.empty())
        return story.fault;
    for (const Invariant& invariant : invariants) {
        if (!invariant.holds(scene, story))
            return invariant.sentence;
    }
    return {};
}

} // namespace game
