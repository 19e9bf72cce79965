#pragma once

#include "bank/failure.h"

#include <vector>

namespace bank {

/// One field of a CSV record, without blanks at either end.
struct Cell
{
    QString text;
    int line = 0;
    qsizetype offset = 0;    ///< where it begins in the file,
    qsizetype lineStart = 0; ///< and where its line does
};

/// Takes a CSV text apart, record by record. Lines end in LF, CR LF or CR.
class CsvRecords
{
public:
    /// `content` must outlive this object. Complaints name `file`.
    CsvRecords(const QString& content, QChar separator, QString file);

    /// The next record, until there is none.
    [[nodiscard]] bool next(std::vector<Cell>& record, Complaints& complaints);

    [[nodiscard]] Place placeOf(const Cell& cell) const;

private:
    [[nodiscard]] Cell cell(Complaints& complaints);
    [[nodiscard]] QString quoted(const Cell& cell, Complaints& complaints);
    [[nodiscard]] QStringView unquoted();
    [[nodiscard]] bool atCellEnd() const;
    void endLine();

    const QString& content_;
    QChar separator_;
    QString file_;
    qsizetype at_ = 0;
    qsizetype lineStart_ = 0;
    int line_ = 1;
};

} // namespace bank
