#pragma once

#include "game/ladder.h"

#include <QString>

namespace game {

/// What the idle prompts look at.
struct PromptContext
{
    int questionnumber = 1;
    QString safeamount;
    bool pollused = false;
    bool friendused = false;
    bool fiftyused = false;
};

/// What the host does to an undecided contestant.
struct IdlePrompt
{
    enum class Opens { Nothing, LifelinesPanel, LadderPanel };

    QString animation; ///< none if empty
    QString text;      ///< none if empty
    Opens opens = Opens::Nothing;
};

inline constexpr int promptCount = 26;

/// The number, 1 to 26, of the prompt that a random number r in [0, 1) picks. The first and the last come up
/// half as often as the others.
[[nodiscard]] int pickedPrompt(float r);

/// Prompt k; an empty one where the prompt has nothing to say or does not apply.
[[nodiscard]] IdlePrompt promptNumber(int k, const PromptContext& context);

} // namespace game
