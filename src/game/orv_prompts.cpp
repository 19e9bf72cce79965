#include "game/orv.h"

#include "game/prompts.h"

namespace game {

void Orv::orv_random_Timer()
{
    if (!state.begun)
        return;
    const PromptContext context{state.questionnumber, state.safeamount, state.pollused, state.friendused,
                                state.fiftyused};
    const IdlePrompt prompt = promptNumber(pickedPrompt(services().random.next()), context);
    narrate(Queued, prompt.animation, prompt.text);
    if (prompt.opens == IdlePrompt::Opens::LifelinesPanel && state.lifelinespanel == Panel::Closed)
        orv_LL_Click();
    if (prompt.opens == IdlePrompt::Opens::LadderPanel && state.statuspanel == Panel::Closed)
        orv_mws_Click();
}

} // namespace game
