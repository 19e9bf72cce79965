#pragma once

#include "toolkit/form.h"

#include <QSet>
#include <QStringList>

#include <array>
#include <string>
#include <vector>

namespace game {

/// A question of the bank, with the tallies that the choices made so far must have left in it.
struct BankRow
{
    qint64 id = 0;
    QString question;
    std::array<QString, 4> answers;
    QString correct;
    QString level;
    std::array<int, 4> tallies{};

    [[nodiscard]] bool isRight(int k) const { return answers.at(k - 1).toLower() == correct.toLower(); }
};

enum class Box { None, Name, Lock, Leave, Blank, Used, Sorry, TimeOver, Champion, Crore, Farewell, Unknown };

/// The controls of an open game form.
struct Scene
{
    explicit Scene(const toolkit::Form& orv);

    [[nodiscard]] QWidget* widget(const QString& name) const;
    /// Of option k: '.' plain, 'c' chosen, 'g' green.
    [[nodiscard]] char look(int k) const;
    [[nodiscard]] bool blank(int k) const { return option.at(k - 1)->text().isEmpty(); }

    const toolkit::Form* form;
    toolkit::TwipRect opening;
    std::array<toolkit::Label*, 4> option{};
    std::array<QWidget*, 4> pollbar{};
    std::array<toolkit::Label*, 4> pollpercent{};
    std::array<std::array<QWidget*, 2>, 3> cross{};
    std::array<QWidget*, 3> lifeline{};
    toolkit::Label* question;
    toolkit::Label* clock;
    QPlainTextEdit* stage;
    QWidget *clockback, *hidepoll, *eraseoptions, *cmdok, *cmdokquit, *leave, *LL, *mws;
    toolkit::Timer *random, *flash, *lifelinetimer;
};

/// One game as a spectator remembers it: what was clicked, asked and said since the form opened.
struct Story
{
    /// A control takes a click or a key that presses it; the result is the box that must follow.
    Box press(const QString& control, const Scene& scene);
    /// After fifty-fifty has been clicked.
    void seeRemoved(const Scene& scene);
    void hear(const QString& hostRequest);
    [[nodiscard]] Box boxOpens(const QString& text);
    void boxCloses(Box box, bool yes);

    [[nodiscard]] bool announced() const { return question > 0 && won == question; }
    [[nodiscard]] bool judged() const { return answer == Answer::Wrong || announced(); }
    [[nodiscard]] bool covered() const { return judged() || withdrawn; }

    std::vector<BankRow>* bank = nullptr;
    QStringList messages; ///< that ask whether to lock
    QString name;
    BankRow* row = nullptr; ///< of the question on screen
    QSet<qint64> asked;
    int question = 0;
    int won = 0;
    /// Sorry: the box that tells of the wrong answer has not been closed.
    enum class Answer { None, Asked, Right, Sorry, Wrong } answer = Answer::None;
    int chosen = 0;
    bool withdrawn = false;   ///< from the question on screen
    bool quitOffered = false; ///< stays, even if a last flash leads on to another question
    std::array<bool, 3> taken{};
    int fiftyQuestion = 0;
    QSet<int> removed;
    bool counting = false;
    bool pollShown = false;
    std::array<int, 4> shares{}; ///< -1 for an option that was removed before the poll
    bool lifelinesOpen = false;
    bool ladderOpen = false;
    int panelsOpenedByPrompts = 0;
    bool unloading = false;
    QString headline; ///< what the label `question` must show
    std::string fault;

private:
    void hearQuestion(const QString& words);
    void hearPrize();
    void hearPrompt(const QString& words);
    void takeLifeline(int k, const Scene& scene);
    void resetOptions();
};

/// The first sentence about the game that does not hold for what can be seen; "" if all do.
[[nodiscard]] std::string brokenInvariant(const Scene& scene, const Story& story);

} // namespace game
