#pragma once

#include <QString>

namespace shell {

/// The rules as the contestant reads them, lines ended by line feeds.
[[nodiscard]] QString rulesText();

} // namespace shell
