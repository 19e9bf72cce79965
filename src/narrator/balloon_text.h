#pragma once

#include <QString>

#include <functional>

namespace narrator {

/// A text as the balloon shows it: runs of pause marks become one mark, blanks are evened out. Empty if
/// the text has nothing to read.
[[nodiscard]] QString shownText(const QString& text);

/// Where the page of `text` that begins at `start` ends. `fitting` tells how many characters of a text
/// fit on a page, breaking between words. The last two pages are evened out.
[[nodiscard]] qsizetype pageEnd(const QString& text, qsizetype start,
                                const std::function<qsizetype(const QString&)>& fitting);

} // namespace narrator
