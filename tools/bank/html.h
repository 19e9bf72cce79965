#pragma once

#include <QString>

#include <optional>

namespace bank {

/// The first tag or entity of HTML in a text, "" if there is none.
[[nodiscard]] QString markupIn(const QString& text);

/// The plain text that HTML stands for; nothing if it holds what no plain text can show, such as a picture, a
/// list or a raised digit.
[[nodiscard]] std::optional<QString> plainOf(const QString& html);

} // namespace bank
