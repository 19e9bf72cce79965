#include "bank/csv.h"

#include "bank/text.h"

#include <utility>

namespace bank {

CsvRecords::CsvRecords(const QString& content, QChar separator, QString file)
    : content_(content), separator_(separator), file_(std::move(file))
{
}

bool CsvRecords::next(std::vector<Cell>& record, Complaints& complaints)
{
    record.clear();
    if (at_ >= content_.size())
        return false;
    record.push_back(cell(complaints));
    while (at_ < content_.size() && content_[at_] == separator_) {
        ++at_;
        record.push_back(cell(complaints));
    }
    if (at_ < content_.size())
        endLine();
    return true;
}

Place CsvRecords::placeOf(const Cell& cell) const
{
    const auto before = QStringView(content_).mid(cell.lineStart, cell.offset - cell.lineStart);
    return {file_, cell.line, static_cast<int>(length(before)) + 1};
}

Cell CsvRecords::cell(Complaints& complaints)
{
    Cell cell{{}, line_, at_, lineStart_};
    const bool isQuoted = at_ < content_.size() && content_[at_] == u'"';
    cell.text = isQuoted ? quoted(cell, complaints).trimmed() : unquoted().trimmed().toString();
    return cell;
}

QString CsvRecords::quoted(const Cell& cell, Complaints& complaints)
{
    QString text;
    for (++at_; at_ < content_.size(); ++at_) {
        const QChar c = content_[at_];
        if (c == u'"') {
            ++at_;
            if (at_ == content_.size() || content_[at_] != u'"') {
                if (!atCellEnd()) {
                    complaints.add(placeOf(cell), "the text goes on behind its closing quotation mark; a "
                                                  "quotation mark inside a text must be doubled");
                    text += unquoted();
                }
                return text;
            }
        } else if (c == u'\n') {
            ++line_;
            lineStart_ = at_ + 1;
        }
        text += c;
    }
    complaints.add(placeOf(cell), "the quotation mark that opens here is never closed");
    return text;
}

QStringView CsvRecords::unquoted()
{
    const qsizetype start = at_;
    while (!atCellEnd())
        ++at_;
    return QStringView(content_).mid(start, at_ - start);
}

bool CsvRecords::atCellEnd() const
{
    return at_ >= content_.size() || content_[at_] == separator_ || content_[at_] == u'\n' ||
           content_[at_] == u'\r';
}

void CsvRecords::endLine()
{
    const bool isPair = content_[at_] == u'\r' && at_ + 1 < content_.size() && content_[at_ + 1] == u'\n';
    at_ += isPair ? 2 : 1;
    lineStart_ = at_;
    ++line_;
}

} // namespace bank
