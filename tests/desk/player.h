#pragma once

#include "desk.h"

#include "support/bank.h"

#include <gtest/gtest.h>

namespace desk {

/// A contestant at a desk of their own, with a question bank whose right answers are spread over the four
/// options. At the end of every test the program has printed nothing and left no file beside the bank.
class Player : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Sits down at the desk and starts the program.
    void begin(const DeskSettings& settings = {});
    /// Goes on to the rules and beyond them, where the name is asked for.
    void beyondRules();
    /// Presses keys once the screen has the keyboard.
    void type(const QString& screen, const QString& keys);
    /// Goes on to question 1.
    void toQuestion(const QString& name = "Guest");
    /// Takes lifeline 1 to 3 by its key.
    void take(int lifeline);
    Scene untilQuestion();

    /// Which option (1 to 4) of a question, or of the one on the screen, is right, by the bank.
    [[nodiscard]] int right(const QString& question);
    [[nodiscard]] int right() { return right(says()); }
    /// Clicks option k and waits for a box.
    ShownWindow choose(int k);
    /// Locks the right answer and waits for the prize to be announced.
    void win();

    [[nodiscard]] QString says() { return desk->look().control("orv", "question").text; }
    /// Counted in the whole bank, beyond the tallies that it started with.
    [[nodiscard]] int choices() const;
    [[nodiscard]] std::string names() const;

    support::Bank bank;
    std::unique_ptr<Desk> desk;
    std::string files = "orv.orv"; ///< what lies in the program's directory at the end
};

/// The title, text, icon and buttons of the farewell box.
extern const char* const farewell;

} // namespace desk
