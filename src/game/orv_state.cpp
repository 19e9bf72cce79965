#include "game/orv.h"

#include <QPlainTextEdit>

namespace game {

using toolkit::Shape;

void Orv::narrate(StopFirst stopfirst, const QString& animation, const QString& text)
{
    if (!state.hostready)
        return;
    if (stopfirst == AtOnce)
        state.host->Stop();
    if (!animation.isEmpty())
        state.host->Play(animation);
    if (!text.isEmpty())
        state.host->Speak(text);
}

void Orv::clearoptions()
{
    state.answered = false;
    for (auto* label : option) {
        label->setBackground(QColor(255, 128, 128));
        label->setOpaque(false);
        label->setAccessibleDescription("");
    }
    for (auto* shape : sign)
        shape->hide();
    clock->hide();
    clockback->hide();
    lifelinetimer->setEnabled(false);
    hidepoll->show();
}

/// At the option k, in words for those who hear it.
void Orv::showSign(int k, Shape::Kind kind, const QString& words)
{
    sign[k - 1]->setKind(kind);
    sign[k - 1]->show();
    option[k - 1]->setAccessibleDescription(words);
}

void Orv::showusedlifelines()
{
    const std::array used = {state.pollused, state.friendused, state.fiftyused};
    for (std::size_t i = 0; i < used.size(); ++i) {
        for (auto* line : crosses[i])
            line->setVisible(used[i]);
        lifeline[i]->setAccessibleDescription(used[i] ? "used" : "");
    }
}

void Orv::markRung(int n)
{
    state.stagetext = withRungMarked(state.stagetext, n);
    stage->setPlainText(state.stagetext);
}

toolkit::TwipRect Orv::largestBounds() const
{
    const double widening = state.statuspanel == Panel::Open ? 0 : 2850;
    const double heightening = state.lifelinespanel == Panel::Open ? 0 : 1000;
    const auto [left, top, width, height] = bounds();
    return {left - widening / 2, top - heightening / 2, width + widening, height + heightening};
}

void Orv::orv_mws_Click()
{
    constexpr double step = 2.5;
    if (state.statuspanel == Panel::Open) {
        slide({{1140, {.width = -step}}, {570, {.left = step}}});
        state.statuspanel = Panel::Closed;
    } else {
        slide({{570, {.left = -step}}, {1140, {.width = step}}});
        state.statuspanel = Panel::Open;
    }
}

} // namespace game
