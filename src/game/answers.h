#pragma once

#include <QString>

namespace game {

/// The fields that count how often each option has been chosen.
inline constexpr const char* tallies[] = {"a", "b", "c", "d"};

/// Letter case does not matter, every other character does.
[[nodiscard]] inline bool sameAnswer(const QString& answer, const QString& correctAnswer)
{
    return answer.toLower() == correctAnswer.toLower();
}

} // namespace game
