#pragma once

#include "game/ladder.h"
#include "toolkit/form.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace game {

/// A question of the bank, with the tallies that the choices made so far must have left in it.
struct BankRow
{
    QString question;
    std::array<QString, 4> answers;
    QString correct;
    int level = 0;
    std::array<int, 4> tallies{};

    [[nodiscard]] bool isRight(int k) const { return answers.at(k - 1).toLower() == correct.toLower(); }
};

/// One game as a spectator remembers it: what was clicked, asked and said since the form opened, and so what
/// must be seen on it. Boxes go by a word each, "" is none.
struct Spectator
{
    explicit Spectator(std::vector<BankRow>& rows) : bank(rows) {}

    void watch(toolkit::Form& orv);
    /// A control takes a click or a key that presses it; the result is the box that must follow.
    std::string press(const QString& control);
    std::string boxOpens(const QString& text);
    void boxCloses(const std::string& box, bool yes);
    void hear(const QString& hostRequest);
    /// Compares all that can be seen with what happened.
    void look();
    void require(bool holds, const char* sentence);

    [[nodiscard]] QWidget& widget(const QString& of) const { return control<QWidget>(of); }
    [[nodiscard]] bool shown(const QString& of) const { return !widget(of).isHidden(); }
    [[nodiscard]] bool announced() const { return question > 0 && won == question; }
    [[nodiscard]] bool judged() const { return answer == Answer::Wrong || announced(); }
    [[nodiscard]] bool covered() const { return judged() || withdrawn; }
    [[nodiscard]] bool blank(int k) const { return fiftyQuestion == question && removed.count(k) > 0; }

    std::vector<BankRow>& bank;
    toolkit::Form* form = nullptr; ///< while it is open
    QString name;
    BankRow* row = nullptr; ///< of the question on screen
    int question = 0;
    int won = 0;
    /// Sorry: the box that tells of the wrong answer has not been closed.
    enum class Answer { None, Asked, Right, Sorry, Wrong } answer = Answer::None;
    bool withdrawn = false;   ///< from the question on screen
    bool quitOffered = false; ///< stays, even if a last flash leads on to another question
    int fiftyQuestion = 0;
    std::set<int> removed;
    bool counting = false;
    bool unloading = false;
    std::string fault; ///< the first sentence that did not hold

    template <typename Control>
    [[nodiscard]] Control& control(const QString& of) const
    {
        return dynamic_cast<Control&>(*controls.at(of));
    }
    void hearQuestion(const QString& words);
    void hearPrize();
    void resetOptions();
    void lookAtOption(int k);

    std::map<QString, QObject*> controls;
    toolkit::TwipRect opening{};
    std::set<const BankRow*> asked;
    int chosen = 0;
    std::array<bool, 3> taken{};
    bool pollShown = false;
    bool lifelinesOpen = false;
    bool ladderOpen = false;
    QString headline; ///< what the label `question` must show
    QString stage = ladderPanelText();
};

} // namespace game
