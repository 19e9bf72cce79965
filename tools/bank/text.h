#pragma once

#include <QStringList>

#include <optional>

namespace bank {

/// Number of code points.
[[nodiscard]] qsizetype length(QStringView text);

/// Whether the code point has no place in a text of one line: a control character, a separator of lines or
/// paragraphs, one that is not seen or turns the direction of what follows, or the mark of broken UTF-8.
[[nodiscard]] bool isStray(char32_t point);
/// The first of them.
[[nodiscard]] std::optional<char32_t> strayCharacter(QStringView text);
/// "U+200B"
[[nodiscard]] QString codePointName(char32_t point);

/// Form in which texts are equal that differ in nothing but case, blanks and the way accents are encoded.
[[nodiscard]] QString folded(const QString& text);
/// The same without accents.
[[nodiscard]] QString searchable(const QString& text);

/// The text as a terminal may have it: stray characters are shown by their names, "<U+001B>".
[[nodiscard]] QString shown(const QString& text);
/// The same for each of its lines.
[[nodiscard]] QString shownLines(const QString& text);
/// At most 60 characters of the text, in quotation marks.
[[nodiscard]] QString quoted(const QString& text);

/// The one of `names` that somebody most likely meant who typed `typed`, "" if none is near.
[[nodiscard]] QString nearestName(const QString& typed, const QStringList& names);

} // namespace bank
