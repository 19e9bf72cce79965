#include "game/draw.h"

#include "game/ladder.h"
#include "toolkit/random.h"

namespace game {

std::optional<QString> levelAfter(int n)
{
    if (n < 0 || n > lastQuestion)
        return std::nullopt;
    if (n < questionsPerStep)
        return "1";
    return n < 2 * questionsPerStep ? "2" : "3";
}

int pickedRow(float r, int count)
{
    return toolkit::roundHalfToEven(r * static_cast<float>(count - 1));
}

} // namespace game
