#pragma once

#include <QString>

namespace game {

/// Letter case does not matter, every other character does.
[[nodiscard]] inline bool sameAnswer(const QString& answer, const QString& correctAnswer)
{
    return answer.toLower() == correctAnswer.toLower();
}

} // namespace game
