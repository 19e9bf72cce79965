#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace voice {

inline constexpr std::string_view foreignMark = "zq";

/// A text in ASCII. Blanks of any kind are ' '; amounts of money begin with #R, #D, #E or #L, and '#' does
/// not occur otherwise. A word of another script is `foreignMark` and its sounds, written as respellings.txt
/// explains. What cannot be said is gone.
struct FoldedText
{
    std::string letters;
    std::vector<qsizetype> ends; ///< for each letter, where the character it
                                 ///< stands for ends in the text
};

/// The rules for other scripts take some 50 ms to be made, when the first word of them comes.
[[nodiscard]] FoldedText fold(const QString& text);

} // namespace voice
