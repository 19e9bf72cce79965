#include "game/draw.h"

#include "game/ladder.h"
#include "toolkit/random.h"

namespace game {

std::optional<QString> levelAfter(int n)
{
    if (n < 0 || n > lastQuestion)
        return std::nullopt;
    if (n < questionsPerStep)
        return QStringLiteral("1");
    return n < 2 * questionsPerStep ? QStringLiteral("2") : QStringLiteral("3");
}

int pickedRow(float r, int count)
{
    return toolkit::roundHalfToEven(r * static_cast<float>(count - 1));
}

} // namespace game
