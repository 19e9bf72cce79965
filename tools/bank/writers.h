#pragma once

#include "bank/question.h"

#include <QByteArray>

#include <vector>

/// The questions as the bytes of a file, the inverse of the readers. The formats other than CSV hold only
/// questions that obey the rules, and no tallies.
namespace bank::writers {

/// RFC 4180 with a byte order mark, by which spreadsheets know UTF-8.
[[nodiscard]] QByteArray csv(const std::vector<Question>& questions);
[[nodiscard]] QByteArray gift(const std::vector<Question>& questions);
/// Levels are left out; see aikenHolds().
[[nodiscard]] QByteArray aiken(const std::vector<Question>& questions);
[[nodiscard]] QByteArray records(const std::vector<Question>& questions);

/// Whether the question's text is not taken for an option or an answer.
[[nodiscard]] bool aikenHolds(const Question& question);

} // namespace bank::writers
