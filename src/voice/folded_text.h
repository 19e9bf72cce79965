#pragma once

#include <QString>

#include <string>
#include <vector>

namespace voice {

/// A text in ASCII. Whatever cannot be written so is gone; blanks of any kind are ' '.
struct FoldedText
{
    std::string letters;
    std::vector<qsizetype> ends; ///< for each letter, where the character it stands for ends in the text
};

[[nodiscard]] FoldedText foldedText(const QString& text);

} // namespace voice
