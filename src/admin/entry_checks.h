#pragma once

#include <QString>

#include <array>

namespace admin {

/// What the boxes and lists of the question editor show, not trimmed.
struct QuestionEntry
{
    QString question;
    std::array<QString, 4> answers;
    QString correctAnswer; ///< empty if none is chosen
    QString level;         ///< empty if none is chosen
};

/// What is wrong with an entry, for a message box: a heading and one line for each fault. Empty if it may be
/// written.
[[nodiscard]] QString faultsOf(const QuestionEntry& entry);
[[nodiscard]] QString faultsOfMessage(const QString& message);

} // namespace admin
