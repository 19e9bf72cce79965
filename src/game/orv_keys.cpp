#include "game/orv.h"

#include "toolkit/reach.h"
#include "toolkit/screens.h"

#include <QPlainTextEdit>

#include <algorithm>

namespace game {

/// The keys of the game; tool tips and the help come from here. Return and M are served elsewhere.
void Orv::addKeyTable()
{
    const auto lifelineKey = [this](int i) { return [this, i] { pressLifeline(i); }; };
    // clang-format off
    addKeys({
        {"A 1",        option[0],   "choose option A"},
        {"B 2",        option[1],   "choose option B"},
        {"C 3",        option[2],   "choose option C"},
        {"D 4",        option[3],   "choose option D"},
        {"Right",      nullptr,     "mark the next option", [this] { markOption({1, 2, 3}); }},
        {"Left",       nullptr,     "mark the one before",  [this] { markOption({3, 2, 1}); }},
        {"Up Down",    nullptr,     "mark the one above or below", [this] { markOption({2, 1, 3}); }},
        {"Return",     nullptr,     "choose what is marked"},
        {"L",          LL,          "bring the lifelines into view or put them away"},
        {"Ctrl+1 F1",  lifeline[0], "bring the statistics poll into view, then take it", lifelineKey(0)},
        {"Ctrl+2 F2",  lifeline[1], "bring ask a friend into view, then take it", lifelineKey(1)},
        {"Ctrl+3 F3",  lifeline[2], "bring fifty-fifty into view, then take it", lifelineKey(2)},
        {"P",          mws,         "bring the prize ladder into view or put it away"},
        {"W",          leave,       "withdraw with what is won"},
        {"R",          nullptr,     "hear the question again", [this] { repeatQuestion(); }},
        {"M",          nullptr,     "mute the host or let him be heard"},
        {"F11",        nullptr,     "fill the screen with the backdrop and back", [this] { fillScreen(); }},
        {"H ?",        nullptr,     "see these keys", [this] { notice(keyHelp(), toolkit::Dialogs::Icon::Information); }},
    });
    // clang-format on
}

/// A lifeline that is out of sight is not taken: the first press brings it into view.
void Orv::pressLifeline(int i)
{
    if (state.lifelinespanel == Panel::Open)
        press(*lifeline[i]);
    else
        press(*LL);
}

/// Moves the mark to the first option that can be chosen, `offsets` from where it is; to the first of all
/// where none is marked.
void Orv::markOption(std::array<int, 3> offsets)
{
    const auto* const marked = std::ranges::find(option, focusWidget());
    const bool none = marked == option.end();
    const auto [first, second, third] = offsets;
    for (const int offset : none ? std::array{0, 1, 2, 3} : std::array{first, second, third, 0}) {
        auto* const next = option.at(((none ? 0 : marked - option.begin()) + offset) % options);
        if (!state.answered && toolkit::isInReach(*next) && !next->text().isEmpty()) {
            next->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

void Orv::repeatQuestion()
{
    if (state.begun && !state.answered && !eraseoptions->isVisible())
        narrate(AtOnce, "announce", questionAloud());
}

void Orv::fillScreen()
{
    if (toolkit::Form* const back = screens().find("back"))
        back->toggleFullScreen();
}

/// For those who hear the screen instead of seeing it.
void Orv::nameForReaders()
{
    LL->setAccessibleName("Lifelines");
    mws->setAccessibleName("My winning status");
    stage->setAccessibleName("Prize ladder");
    clock->setAccessibleDescription("seconds of ten");
}

} // namespace game
