#include "bank/csv.h"
#include "bank/intake.h"
#include "bank/lines.h"

#include <QHash>

#include <algorithm>

namespace bank {
namespace {

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
        }
        if (question.right.isEmpty() && !question.key.isEmpty())
            question.findRight();
        intake_.accept(std::move(question), [&](Field field) { return placeOf(field, cells); });
    }

    [[nodiscard]] Place placeOf(Field field, const std::vector<Cell>& cells) const
    {
        auto found = std::find(columns_.begin(), columns_.end(), number(field));
        if (found == columns_.end() && field == Field::Right)
            found = std::find(columns_.begin(), columns_.end(), key);
        const auto index = static_cast<std::size_t>(found - columns_.begin());
        return records_.placeOf(cells.at(index < columns_.size() ? index : 0));
    }

    CsvRecords records_;
    QString file_;
    Intake& intake_;
    std::vector<Cell> header_;
    std::vector<int> columns_;
};

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

} // namespace bank
