#pragma once

#include <QStringList>

#include <optional>

namespace bank {

/// Number of code points.
[[nodiscard]] qsizetype length(QStringView text);

/// The first code point that has no place in a text of one line: a control character, a separator of lines or
/// paragraphs, one that is not seen or turns the direction of what follows, or the mark of broken UTF-8.
[[nodiscard]] std::optional<char32_t> strayCharacter(const QString& text);
/// "U+200B"
[[nodiscard]] QString codePointName(char32_t point);

/// The text as a terminal may have it: stray characters are shown by their names, "<U+001B>".
[[nodiscard]] QString shown(const QString& text);
/// At most 60 characters of the text, in quotation marks.
[[nodiscard]] QString quoted(const QString& text);

/// What to say of a word that is none of `names`: `what`, all of them and which was most likely meant.
[[nodiscard]] QString unknown(const QString& what, const QString& word, const QStringList& names);

/// The first tag or entity of HTML in a text, "" if there is none.
[[nodiscard]] QString markupIn(const QString& text);
/// The plain text that HTML stands for; nothing if it holds what no plain text can show, such as a picture, a
/// list or a raised digit.
[[nodiscard]] std::optional<QString> plainOf(const QString& html);

} // namespace bank
