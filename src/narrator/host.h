#pragma once

#include "narrator/character.h"

#include <memory>

namespace toolkit {
class Clock;
}

namespace voice {
class Speaker;
}

namespace narrator {

/// Characters whose host stands beside `form`, takes its time from `clock` and speaks through `speaker`;
/// both must outlive them. Without a speaker the host is silent. Form and characters may go in any order.
[[nodiscard]] std::unique_ptr<Characters> makeCharacters(QWidget& form, toolkit::Clock& clock,
                                                         voice::Speaker* speaker = nullptr);

} // namespace narrator
