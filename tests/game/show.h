#pragma once

#include "support/bank.h"
#include "support/stand.h"

namespace game {

/// Adds the game to the screens, and plain forms for its neighbours.
void addScreens(support::Stand& stand, toolkit::Services services, const bool& hostMissing);

/// A game on a bank of its own, with a stepped clock and a host that writes down what it is asked. The
/// draws take the numbers of stand.random in turn: one for each question and one for each prompt message.
class ShowTest : public testing::Test
{
protected:
    ShowTest();

    /// Opens the game form, gives the name "Asha" and drops what the host was asked so far.
    void start();
    void chooseOption(int k, bool lock);
    /// Chooses the right option (the third), waits for the flashing to end.
    void answerRight();
    /// Answers questions 1 to n rightly and goes on to the next one.
    void answerUpTo(int n);

    [[nodiscard]] QString shown(const QString& label) const { return stand.text("orv", label); }
    [[nodiscard]] bool visible(const QString& control) const;
    /// What the four options say, with bars between them.
    [[nodiscard]] std::string options() const;
    /// The looks of the four options: "." plain, "c" chosen, "g" green.
    [[nodiscard]] std::string looks() const;
    [[nodiscard]] std::string focused() const;
    void expectFarewell();

    support::Bank bank;
    support::Stand stand;
    bool hostMissing = false;
};

} // namespace game
