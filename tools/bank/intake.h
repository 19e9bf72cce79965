#pragma once

#include "bank/progress.h"
#include "bank/rules.h"

#include <filesystem>
#include <functional>

namespace bank {

/// Takes in the questions that a reader finds, with the complaints about them.
class Intake
{
public:
    /// `level` is that of questions whose source gives none; it may be empty.
    Intake(Texts demanded, QString level, Progress& progress);

    /// Adds a question and complains about its breaches at the places that `placeOf` gives for its fields.
    void accept(Question question, const std::function<Place(Field)>& placeOf);

    [[nodiscard]] const QString& level() const { return level_; }

    Bank bank;
    Complaints complaints;

private:
    Texts demanded_;
    QString level_;
    Progress& progress_;
};

// The readers. Each adds all questions of a file to the intake, and throws Failure if it cannot be read.

/// Records of lines "name: text", as data/README.md describes them.
void readRecords(const std::filesystem::path& file, Intake& intake);
/// RFC 4180 with the separator `,`, `;` or tab and a header row.
void readCsv(const std::filesystem::path& file, Intake& intake);
/// The multiple choice questions of GIFT; a category that ends in "level N" gives the level.
void readGift(const std::filesystem::path& file, Intake& intake);
/// Aiken, which holds no level.
void readAiken(const std::filesystem::path& file, Intake& intake);

} // namespace bank
