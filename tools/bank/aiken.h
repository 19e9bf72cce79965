#pragma once

#include <QStringView>

#include <optional>

/// The lines that mean something in the format Aiken.
namespace bank::aiken {

/// Length of the marker, like "A. " or "B) ", with which an option begins; 0 if the line is none.
[[nodiscard]] qsizetype markerIn(QStringView line);

/// What follows "ANSWER:" in the line of the right answer.
[[nodiscard]] std::optional<QStringView> answerIn(QStringView line);

} // namespace bank::aiken
