#pragma once

#include <QString>

#include <variant>

namespace db {

/// What can be bound to a statement or set in a field: a whole number or a text of any length.
using Value = std::variant<qint64, QString>;

} // namespace db
