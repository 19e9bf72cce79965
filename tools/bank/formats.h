#pragma once

#include "bank/intake.h"
#include "bank/lines.h"

namespace bank {

/// A format of files with questions. Reading adds all questions of a file to the intake; writing is the
/// inverse.
struct Format
{
    const char* name; ///< as --format has it
    const char* endings;
    void (*read)(const TextFile& file, Intake& intake);
    QByteArray (*write)(const std::vector<Question>& questions);
    bool (*holds)(const Question& question); ///< whether its text is taken for nothing else, null if always
    bool holdsLevels;
    bool holdsAll; ///< also tallies, and questions that break the rules
};

/// RFC 4180 with the separator `,`, `;` or tab and a header row; written with a byte order mark, by which
/// spreadsheets know UTF-8.
void readCsv(const TextFile& file, Intake& intake);
[[nodiscard]] QByteArray writeCsv(const std::vector<Question>& questions);
/// A text as one cell of a record.
[[nodiscard]] QString csvCell(QString text);
/// Whether the first row names columns, parted by tabs, as spreadsheets save a text.
[[nodiscard]] bool isTabSeparated(const TextFile& file);

/// The multiple choice questions of GIFT; a category that ends in "level N" gives the level.
void readGift(const TextFile& file, Intake& intake);
[[nodiscard]] QByteArray writeGift(const std::vector<Question>& questions);

void readAiken(const TextFile& file, Intake& intake);
[[nodiscard]] QByteArray writeAiken(const std::vector<Question>& questions);
/// Whether the question's text is not taken for an option or an answer.
[[nodiscard]] bool aikenHolds(const Question& question);

/// Records of lines "name: text", as data/README.md describes them.
void readRecords(const TextFile& file, Intake& intake);
[[nodiscard]] QByteArray writeRecords(const std::vector<Question>& questions);

inline constexpr std::array<Format, 4> formats = {{
    {"csv", ".csv .tsv", readCsv, writeCsv, nullptr, true, true},
    {"gift", ".gift", readGift, writeGift, nullptr, true, false},
    {"aiken", ".aiken", readAiken, writeAiken, aikenHolds, false, false},
    {"text", ".txt", readRecords, writeRecords, nullptr, true, false},
}};

/// The format that the ending of a file's name tells; throws Failure if it tells none.
[[nodiscard]] const Format& formatOf(const std::filesystem::path& file);

} // namespace bank
