#pragma once

#include "db/likeness.h"

#include <QSet>

namespace admin {

/// Finds questions that ask nearly the same as one, quickly enough for all of a large bank while it is typed.
/// Words are compared by their first letters.
class Nearness
{
public:
    explicit Nearness(const QString& question);

    /// There is enough of it to be compared.
    [[nodiscard]] bool isTelling() const { return asked_.words.size() > 1; }
    /// The numbers are the same, and half of all words of both.
    [[nodiscard]] bool isNear(const QString& question) const;

private:
    db::QuestionWords asked_;
    QSet<QString> stems_;
};

} // namespace admin
