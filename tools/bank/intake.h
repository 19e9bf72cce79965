#pragma once

#include "bank/progress.h"
#include "bank/rules.h"

namespace bank {

/// Takes in the questions that a reader finds, with the complaints about them.
class Intake
{
public:
    /// `level` is that of questions whose source gives none; it may be empty.
    Intake(Texts demanded, QString level, Progress& progress);

    /// Adds a question and complains about its breaches.
    void accept(Question question);

    [[nodiscard]] const QString& level() const { return level_; }

    Bank bank;
    Complaints complaints;

private:
    Texts demanded_;
    QString level_;
    Progress& progress_;
};

} // namespace bank
