#pragma once

#include <QString>

#include <optional>

namespace bank {

/// Number of code points.
[[nodiscard]] qsizetype length(QStringView text);

/// The first code point that has no place in a text of one line: a control character, a line or paragraph
/// separator, a byte order mark.
[[nodiscard]] std::optional<char32_t> strayCharacter(QStringView text);

/// Form in which texts are equal that differ in nothing but case, blanks and the way accents are encoded.
[[nodiscard]] QString folded(const QString& text);

} // namespace bank
