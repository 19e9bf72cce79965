#pragma once

#include <QString>

namespace stage {

/// A text as the balloon shows it: runs of pause marks become one mark, blanks are evened out. Empty if
/// the text has nothing to read. What is shown for the beginning of a text begins what is shown for all
/// of it, if that is cut behind a word.
[[nodiscard]] QString shownText(const QString& text);

} // namespace stage
