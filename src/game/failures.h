#pragma once

#include "db/failure.h"

namespace game {

/// The level has no question left that this game has not asked.
[[nodiscard]] db::Failure tooFewQuestions(const QString& file, const QString& level, int count);

/// What the contestant is told when the bank has no prompt message; the game goes on with one of its own.
[[nodiscard]] QString noPromptMessages(const QString& file);

/// What the contestant is told when the row of the question has gone; the verdict stands all the same.
[[nodiscard]] QString questionRemoved(const QString& file);

} // namespace game
