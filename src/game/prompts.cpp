#include "game/prompts.h"

#include "toolkit/random.h"

namespace game {

int pickedPrompt(float r)
{
    return toolkit::roundHalfToEven(r * static_cast<float>(promptCount - 1) + 1);
}

IdlePrompt promptNumber(int k, const PromptContext& context)
{
    using Opens = IdlePrompt::Opens;
    const int answered = context.questionnumber - 1;
    const auto unless = [](bool used, const IdlePrompt& prompt) { return used ? IdlePrompt() : prompt; };

    switch (k) {
    case 1:
        return {"sad", "You don't know the answer?"};
    case 2:
        return {"suggest", "Try using the lifelines?", Opens::LifelinesPanel};
    case 3:
        return {"think", "are you still thinking?"};
    case 4:
        return {"confused", "Are you confused?"};
    case 5:
        return {"Alert", QString("you have reached question number %1").arg(context.questionnumber)};
    case 6:
        return {"Explain", "The minimum amount that you can take if you loose now is " +
                               amountinwords(context.safeamount)};
    case 7:
        return {"Greet", "You have currently won rupees " + amountinwords(prizeLadder()[answered]) + "!",
                Opens::LadderPanel};
    case 9:
        return unless(context.pollused, {"", "Try using Statistics poll!!"});
    case 10:
        return unless(context.friendused, {"", "Do you wish to use ask a friend lifeline!!"});
    case 11:
        return unless(context.fiftyused, {"think", "Try fifty fifty lifeline!!"});
    case 12:
        return {"", QString("You have answered %1 questions correctly!").arg(answered)};
    case 13:
        return {"Search", ""};
    case 14:
        return {"Show", ""};
    case 15:
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
    case 21:
    case 22:
        return {"blink", ""};
    case 23:
    case 24:
    case 25:
        return {"Thinking", ""};
    default: // 8 and 26 let the contestant think in peace
        return {};
    }
}

} // namespace game
