#include "game/draw.h"

#include "db/schema.h"
#include "game/ladder.h"
#include "toolkit/random.h"

#include <algorithm>

namespace game {

std::optional<QString> levelAfter(int n)
{
    if (n < 0 || n > lastQuestion)
        return std::nullopt;
    return db::schema::levels[static_cast<std::size_t>(std::min(n, lastQuestion - 1) / questionsPerStep)];
}

int pickedRow(float r, int count)
{
    return toolkit::roundHalfToEven(r * static_cast<float>(count - 1));
}

} // namespace game
