#pragma once

#include "game/state.h"
#include "narrator/character.h"
#include "toolkit/form.h"

#include <array>

namespace game {

/// The game form: one contestant's game from its first question to its end. Its handlers stand in one file
/// per subject, in the order of the sections below.
class Orv final : public toolkit::Form
{
public:
    Orv(toolkit::Services services, const narrator::CharactersFactory& makeCharacters);

    /// With both panels open.
    [[nodiscard]] toolkit::TwipRect largestBounds() const override;

protected:
    void failed(const std::exception& failure) override;

    // Start and end (orv_start.cpp, orv_end.cpp)
    void Form_Load() override;
    void Form_Unload() override;

private:
    enum StopFirst { Queued = 0, AtOnce = 1 };
    static constexpr int options = 4;

    void addControls();
    void addFrontControls();
    void addPoll();
    void addCrosses();
    void addOptions();
    void addQuestion();
    void fitLadder();
    void connectHandlers();
    void nameForReaders();

    // Start (orv_start.cpp)
    void openBank();
    void loadHost();

    // Tools of all handlers (orv_state.cpp)
    void narrate(StopFirst stopfirst, const QString& animation, const QString& text);
    void clearoptions();
    void showSign(int k, toolkit::Shape::Kind kind, const QString& words);
    void showusedlifelines();
    void markRung(int n);
    void orv_mws_Click();

    // Keys (orv_keys.cpp)
    void addKeyTable();
    void pressLifeline(int i);
    void markOption(std::array<int, 3> offsets);
    void repeatQuestion();
    void fillScreen();

    // Question (orv_question.cpp)
    void displayquestion();
    void drawQuestion();
    void showOption(int i, const QString& answer);
    void removeOption(int i);
    [[nodiscard]] QString questionAloud() const;

    // Answer and verdict (orv_answer.cpp)
    void orv_option_Click(int k);
    void lockanswer();
    [[nodiscard]] QString promptMessage();
    void judgeWrong(const QString& correctAnswer);
    void recordchoice(int k);
    void startflash();
    void orv_flash_Timer();
    void announceprize();
    void orv_cmdok_Click();
    [[nodiscard]] static QString answerOf(const toolkit::Label& option);
    [[nodiscard]] QString optionsForReaders() const;

    // Lifelines and their panel (orv_lifelines.cpp)
    void orv_LL_Click();
    void orv_lifeline1_Click();
    void showShare(int i, bool shown, int percent);
    void orv_lifeline2_Click();
    void orv_lifelinetimer_Timer();
    void orv_lifeline3_Click();
    void refuseLifeline(const QString& animation);

    // Idle prompts (orv_prompts.cpp)
    void orv_random_Timer();

    // Withdrawal and end (orv_end.cpp)
    void orv_leave_Click();
    void orv_cmdokquit_GotFocus();
    void orv_cmdokquit_Click();
    void enterClosingState();

    GameState state;

    toolkit::Timer* random;
    toolkit::Timer* lifelinetimer;
    toolkit::Timer* flash;
    toolkit::Button* leave;
    toolkit::Button* cmdokquit;
    toolkit::Button* cmdok;
    toolkit::Button* mws;
    toolkit::Button* LL;
    QPlainTextEdit* stage;
    toolkit::Shape* eraseoptions;
    toolkit::Shape* hidepoll;
    std::array<toolkit::Shape*, options> pollbar;
    std::array<toolkit::Label*, options> pollpercent;
    toolkit::Label* clock;
    toolkit::Shape* clockback;
    std::array<std::array<toolkit::Line*, 2>, 3> crosses; ///< over lifeline1 to lifeline3
    std::array<toolkit::Label*, options> option;          ///< option1 to option4
    std::array<toolkit::Shape*, options> sign;            ///< at the right of each: locked, right or wrong
    toolkit::Label* question;
    std::array<toolkit::Label*, 3> lifeline; ///< lifeline1 to lifeline3

    /// After the controls, so that the host goes before them.
    std::unique_ptr<narrator::Characters> myagent;
};

} // namespace game
