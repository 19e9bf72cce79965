#include "game/fifty.h"

#include "toolkit/random.h"

#include <algorithm>

namespace game {

std::vector<int> removedOptions(std::array<bool, 4> removable, toolkit::Random& random)
{
    const auto wanted = std::min<std::ptrdiff_t>(2, std::ranges::count(removable, true));
    std::vector<int> removed;
    while (std::ssize(removed) < wanted) {
        random.reseed();
        const int k = toolkit::roundHalfToEven(3 * random.next() + 1);
        if (removable[k - 1]) {
            removable[k - 1] = false;
            removed.push_back(k);
        }
    }
    return removed;
}

} // namespace game
