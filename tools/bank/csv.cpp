#include "bank/formats.h"
#include "bank/lines.h"
#include "bank/text.h"

#include <QHash>

#include <algorithm>

namespace bank {
namespace {

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

// What a column holds: a field of a question by its number, or one of these.
constexpr int unused = -1;
constexpr int firstTally = 10;
constexpr int key = 9;

struct Name
{
    const char* name;
    int column;
};

constexpr int number(Field field)
{
    return static_cast<int>(field);
}

/// Names of columns in lower case: our own, and those of the database.
constexpr Name columnNames[] = {
    {"level", number(Field::Level)}, {"topic", number(Field::Topic)}, {"question", number(Field::Question)},
    {"a", number(Field::A)},         {"b", number(Field::B)},         {"c", number(Field::C)},
    {"d", number(Field::D)},         {"answer1", number(Field::A)},   {"answer2", number(Field::B)},
    {"answer3", number(Field::C)},   {"answer4", number(Field::D)},   {"right", number(Field::Right)},
    {"correct_answer", key},         {"why", number(Field::Why)},     {"tally a", firstTally},
    {"tally b", firstTally + 1},     {"tally c", firstTally + 2},     {"tally d", firstTally + 3},
};

int columnOf(const QString& name)
{
    const auto* const found =
        std::find_if(std::begin(columnNames), std::end(columnNames), [&](const Name& known) {
            return name.compare(QString(known.name), Qt::CaseInsensitive) == 0;
        });
    return found == std::end(columnNames) ? unused : found->column;
}

/// What each column of the file holds.
std::vector<int> columnsOf(const std::vector<Cell>& header)
{
    // In a table that was taken out of a database as it is, a to d are the tallies.
    const bool fromDatabase = std::any_of(header.begin(), header.end(), [](const Cell& cell) {
        return cell.text.compare("answer1", Qt::CaseInsensitive) == 0;
    });
    std::vector<int> columns;
    for (const Cell& cell : header) {
        const int column = columnOf(cell.text);
        const bool isLetter = cell.text.size() == 1 && column != unused;
        columns.push_back(isLetter && fromDatabase ? column - number(Field::A) + firstTally : column);
    }
    return columns;
}

/// The separator with which the first record names the most columns.
QChar separatorOf(const QString& content)
{
    const QChar candidates[] = {u',', u';', u'\t'};
    const auto known = [&](QChar separator) {
        Complaints ignored;
        std::vector<Cell> header;
        (void)CsvRecords(content, separator, {}).next(header, ignored);
        const auto columns = columnsOf(header);
        return std::count_if(columns.begin(), columns.end(), [](int column) { return column != unused; });
    };
    return *std::max_element(std::begin(candidates), std::end(candidates),
                             [&](QChar a, QChar b) { return known(a) < known(b); });
}

class CsvSource
{
public:
    CsvSource(const QString& content, const QString& file, Intake& intake)
        : records_(content, separatorOf(content), file), file_(file), intake_(intake)
    {
    }

    void read()
    {
        std::vector<Cell> cells;
        if (!records_.next(header_, intake_.complaints) || !readHeader())
            return;
        while (records_.next(cells, intake_.complaints)) {
            const bool blank =
                std::all_of(cells.begin(), cells.end(), [](const Cell& cell) { return cell.text.isEmpty(); });
            if (!blank && hasAllCells(cells))
                readQuestion(cells);
        }
    }

private:
    /// Whether the columns are such that the rows can be read.
    bool readHeader()
    {
        columns_ = columnsOf(header_);
        QHash<int, int> seen;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const Place place = records_.placeOf(header_[i]);
            if (columns_[i] == unused) {
                if (!header_[i].text.isEmpty()) {
                    intake_.complaints.warn(place,
                                            QString("the column \"%1\" is not used").arg(header_[i].text));
                }
            } else if (++seen[columns_[i]] > 1) {
                intake_.complaints.add(place,
                                       QString("there is a second column \"%1\"").arg(header_[i].text));
            }
        }
        QStringList missing;
        for (const Field field : {Field::Question, Field::A, Field::B, Field::C, Field::D})
            if (!seen.contains(number(field)))
                missing << nameOf(field);
        if (!seen.contains(number(Field::Right)) && !seen.contains(key))
            missing << "right";
        if (!seen.contains(number(Field::Level)) && intake_.level().isEmpty())
            missing << "level (or give --level)";
        if (!missing.empty()) {
            intake_.complaints.add(
                {file_, 1},
                QString("the first row must name the columns; missing: %1").arg(missing.join(", ")));
        }
        return intake_.complaints.empty();
    }

    bool hasAllCells(const std::vector<Cell>& cells)
    {
        const auto isText = [](const Cell& cell) { return !cell.text.isEmpty(); };
        const auto wanted = static_cast<std::ptrdiff_t>(columns_.size());
        const bool fits =
            cells.size() >= columns_.size() && std::none_of(cells.begin() + wanted, cells.end(), isText);
        if (!fits) {
            intake_.complaints.add(
                records_.placeOf(cells.front()),
                QString("the row has %1 cells, the first row has %2; a text with a separator in it must "
                        "stand in quotation marks")
                    .arg(cells.size())
                    .arg(columns_.size()));
        }
        return fits;
    }

    void readTally(const Cell& cell, qint64& tally)
    {
        bool isNumber = true;
        const qint64 value = cell.text.isEmpty() ? 1 : cell.text.toLongLong(&isNumber);
        if (!isNumber || value < 0) {
            intake_.complaints.add(records_.placeOf(cell),
                                   QString("the tally \"%1\" is no whole number").arg(cell.text));
        } else {
            tally = value;
        }
    }

    void readQuestion(const std::vector<Cell>& cells)
    {
        Question question;
        question.place = {file_, cells.front().line};
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const int column = columns_[i];
            if (column >= firstTally)
                readTally(cells[i], question.tallies.at(static_cast<std::size_t>(column - firstTally)));
            else if (column == key)
                question.key = cells[i].text;
            else if (column != unused)
                question.at(static_cast<Field>(column)) = cells[i].text;
            if (column >= 0 && column <= key) {
                const Place place = records_.placeOf(cells[i]);
                question.spot(column == key ? Field::Right : static_cast<Field>(column)) = {place.line,
                                                                                            place.column};
            }
        }
        if (question.right.isEmpty() && !question.key.isEmpty())
            question.findRight();
        intake_.accept(std::move(question));
    }

    CsvRecords records_;
    QString file_;
    Intake& intake_;
    std::vector<Cell> header_;
    std::vector<int> columns_;
};

QString csvCell(QString text)
{
    const auto needsMarks = [](QChar c) {
        return c == u'"' || c == u',' || c == u';' || c == u'\t' || c == u'\n' || c == u'\r';
    };
    if (std::none_of(text.cbegin(), text.cend(), needsMarks))
        return text;
    return u'"' + text.replace(u'"', "\"\"") + u'"';
}

} // namespace

void readCsv(const std::filesystem::path& file, Intake& intake)
{
    const QString content = readText(file, intake.complaints);
    if (content.trimmed().isEmpty()) {
        intake.complaints.add({nameOf(file)}, "the file is empty");
        return;
    }
    CsvSource(content, nameOf(file), intake).read();
}

QByteArray writeCsv(const std::vector<Question>& questions)
{
    QString content(QChar::ByteOrderMark);
    content += "level,question,A,B,C,D,right,tally A,tally B,tally C,tally D\r\n";
    for (const Question& question : questions) {
        QStringList cells;
        for (const Field field :
             {Field::Level, Field::Question, Field::A, Field::B, Field::C, Field::D, Field::Right})
            cells << csvCell(question.at(field));
        for (const qint64 tally : question.tallies)
            cells << QString::number(tally);
        content += cells.join(u',') + "\r\n";
    }
    return content.toUtf8();
}

} // namespace bank
