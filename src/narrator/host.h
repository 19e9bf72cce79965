#pragma once

#include "narrator/character.h"

#include <memory>

namespace toolkit {
class Clock;
}

namespace narrator {

/// Characters whose host stands beside `form` and takes its time from `clock`, which must outlive them.
/// Form and characters may go in any order.
[[nodiscard]] std::unique_ptr<Characters> makeCharacters(QWidget& form, toolkit::Clock& clock);

} // namespace narrator
