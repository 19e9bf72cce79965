#include "bank/formats.h"
#include "bank/text.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <span>
#include <utility>

namespace bank {
namespace {

/// One field of a CSV record, without blanks at either end.
struct Cell
{
    QString text;
    Spot spot;
};

using Record = std::vector<Cell>;

bool isBlank(std::span<const Cell> cells)
{
    return std::ranges::all_of(cells, [](const Cell& cell) { return cell.text.isEmpty(); });
}

/// Takes a CSV text apart, record by record, and complains about it. Lines end in LF, CR LF or CR.
class Records
{
public:
    /// `file` and `complaints` must outlive this object.
    Records(const TextFile& file, QChar separator, Complaints& complaints)
        : file_(file), content_(file.content), separator_(separator), complaints_(complaints)
    {
    }

    /// The next record, until there is none.
    [[nodiscard]] bool next(Record& record)
    {
        record.clear();
        if (at_ >= content_.size())
            return false;
        for (bool more = true; more;) {
            record.push_back(cell());
            more = at_ < content_.size() && content_[at_] == separator_;
            if (at_ < content_.size())
                step();
        }
        return true;
    }

    /// The first record with a text in it. Above it spreadsheets name their separator, and owners leave
    /// space.
    [[nodiscard]] bool header(Record& record)
    {
        while (next(record))
            if (!isBlank(record) &&
                !(record.front().spot.line == 1 && record.front().text.startsWith("sep=")))
                return true;
        return false;
    }

    [[nodiscard]] Place placeOf(const Cell& cell) const
    {
        return {file_.name, cell.spot.line, cell.spot.column};
    }

private:
    Cell cell()
    {
        Cell cell{{}, spot_};
        const bool isQuoted = at_ < content_.size() && content_[at_] == u'"';
        cell.text = isQuoted ? quotedText(placeOf(cell)).trimmed() : unquotedText().trimmed().toString();
        return cell;
    }

    QString quotedText(const Place& place)
    {
        QString text;
        for (step(); at_ < content_.size(); step()) {
            if (content_[at_] == u'"') {
                step();
                if (atCellEnd())
                    return text;
                if (content_[at_] != u'"') {
                    complaints_.add(place, "the text goes on behind its closing "
                                           "quotation mark; double the marks inside it");
                    return text += unquotedText();
                }
            }
            text += content_[at_];
        }
        complaints_.add(place, "the quotation mark that opens here is never closed");
        return text;
    }

    QStringView unquotedText()
    {
        const qsizetype start = at_;
        while (!atCellEnd())
            ++at_;
        const QStringView text = content_.sliced(start, at_ - start);
        spot_.column += static_cast<int>(length(text));
        return text;
    }

    [[nodiscard]] bool atCellEnd() const
    {
        return at_ >= content_.size() || content_[at_] == separator_ || content_[at_] == u'\n' ||
               content_[at_] == u'\r';
    }

    /// Goes past one code unit, or past the end of a line.
    void step()
    {
        const QChar c = content_[at_++];
        if (c == u'\r' && at_ < content_.size() && content_[at_] == u'\n')
            ++at_;
        if (c == u'\r' || c == u'\n')
            spot_ = {spot_.line + 1, 1};
        else
            spot_.column += c.isLowSurrogate() ? 0 : 1;
    }

    const TextFile& file_;
    QStringView content_;
    QChar separator_;
    Complaints& complaints_;
    qsizetype at_ = 0;
    Spot spot_{1, 1};
};

// What a column holds: a field of a question by its number, or one of these.
constexpr int unused = -1;
constexpr int answer = 9; ///< text or letter of the right option, whatever the row has
constexpr int key = 10;   ///< its text
constexpr int firstTally = 11;

constexpr int number(Field field)
{
    return static_cast<int>(field);
}

/// Names of columns in lower case: our own, those of the database, and those that other programs give.
constexpr std::pair<int, const char*> columnNames[] = {
    {number(Field::Level), "level|difficulty"},
    {number(Field::Topic), "topic|category"},
    {number(Field::Question), "question|question text"},
    {number(Field::Right), "right"},
    {key, "correct_answer"},
    {answer, "correct answer|correct option|correct|right answer|answer"},
    {number(Field::Why), "why|explanation"},
};

int columnOf(const QString& name)
{
    static const QRegularExpression option("^(tally |(?:option|answer|choice)[ _]?)?([a-d]|[1-4])$");
    static const QHash<QString, int> known = [] {
        QHash<QString, int> columns;
        for (const auto& [column, names] : columnNames)
            for (const QString& each : QString(names).split(u'|'))
                columns.insert(each, column);
        return columns;
    }();
    const QString lower = name.simplified().toLower();
    if (const auto found = known.find(lower); found != known.end())
        return *found;
    const auto match = option.match(lower);
    if (!match.hasMatch() || (match.captured(1).isEmpty() && lower.front().isDigit()))
        return unused;
    const int letter = match.captured(2).front().unicode();
    const int index = letter - (letter >= 'a' ? 'a' : '1');
    return index + (match.captured(1).startsWith("tally") ? firstTally : number(Field::A));
}

/// What each column of the file holds.
std::vector<int> columnsOf(const Record& header)
{
    // In a table that was taken out of a database as it is, a to d are the tallies.
    const bool fromDatabase =
        std::ranges::count(header, "answer1", [](const Cell& c) { return c.text.toLower(); }) > 0;
    std::vector<int> columns;
    for (const Cell& cell : header) {
        const int column = columnOf(cell.text);
        const bool isLetter = cell.text.size() == 1 && column != unused;
        columns.push_back(isLetter && fromDatabase ? column - number(Field::A) + firstTally : column);
    }
    return columns;
}

std::ptrdiff_t knownColumns(const TextFile& file, QChar separator)
{
    Complaints ignored;
    Record header;
    if (!Records(file, separator, ignored).header(header))
        return 0;
    return std::ranges::count_if(columnsOf(header), [](int column) { return column != unused; });
}

/// The separator with which the header names the most columns.
QChar separatorOf(const TextFile& file)
{
    constexpr QStringView candidates = u",;\t";
    return *std::ranges::max_element(candidates, {},
                                     [&](QChar separator) { return knownColumns(file, separator); });
}

/// "2" for "Level 2" and "medium".
QString levelOf(const QString& text)
{
    if (isLevel(text))
        return text;
    const auto word = QStringList{"easy", "medium", "hard"}.indexOf(text.toLower());
    return word >= 0                                        ? QString::number(word + 1)
           : text.startsWith("level ", Qt::CaseInsensitive) ? text.mid(6).trimmed()
                                                            : text;
}

/// The letter that is meant by "b" or "2", "" if the text is no such thing.
QString letterOf(const QString& text)
{
    const auto at = text.size() == 1 ? QStringView(u"ABCD1234").indexOf(text.front().toUpper()) : -1;
    return at < 0 ? QString() : nameOf(optionFields.at(static_cast<std::size_t>(at) % 4));
}

class CsvSource
{
public:
    CsvSource(const TextFile& file, Intake& intake)
        : records_(file, separatorOf(file), intake.complaints), file_(file.name), intake_(intake)
    {
    }

    void read()
    {
        if (!records_.header(header_))
            return intake_.complaints.add({file_}, "the file is empty");
        columns_ = columnsOf(header_);
        auto faults = intake_.complaints.count();
        checkHeader();
        if (intake_.complaints.count() > faults)
            return;
        for (Record cells; records_.next(cells); faults = intake_.complaints.count())
            if (intake_.complaints.count() == faults && !isBlank(cells) && fits(cells))
                readQuestion(cells);
    }

private:
    void complain(const Cell& cell, const QString& reason)
    {
        intake_.complaints.add(records_.placeOf(cell), reason);
    }

    /// Complains unless the columns are such that the rows can be read.
    void checkHeader()
    {
        QSet<int> seen;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const QString name = quoted(header_[i].text);
            if (columns_[i] == unused && !header_[i].text.isEmpty())
                intake_.complaints.warn(records_.placeOf(header_[i]),
                                        QString("the column %1 is not used").arg(name));
            else if (columns_[i] != unused && seen.contains(columns_[i]))
                complain(header_[i], QString("there is a second column %1").arg(name));
            seen.insert(columns_[i]);
        }
        QStringList missing;
        for (const Field field : {Field::Question, Field::A, Field::B, Field::C, Field::D})
            if (!seen.contains(number(field)))
                missing << nameOf(field);
        if (!seen.intersects({number(Field::Right), key, answer}))
            missing << "right";
        if (!seen.contains(number(Field::Level)) && intake_.level().isEmpty())
            missing << "level (or give --level)";
        if (!missing.empty())
            intake_.complaints.add(
                {file_, header_.front().spot.line},
                QString("the first row must name the columns; missing: %1").arg(missing.join(", ")));
    }

    /// Whether there is no text beyond the columns. Spreadsheets leave out empty
    /// cells at the end of a row.
    bool fits(Record& cells)
    {
        const std::size_t count = cells.size();
        cells.resize(std::max(count, columns_.size()), {{}, cells.front().spot});
        if (isBlank(std::span(cells).subspan(columns_.size())))
            return true;
        complain(cells.front(), QString("the row has %1 cells, the first row has "
                                        "%2; a text with a separator in it must "
                                        "stand in quotation marks")
                                    .arg(count)
                                    .arg(columns_.size()));
        return false;
    }

    void readTally(const Cell& cell, qint64& tally)
    {
        bool isNumber = true;
        const qint64 value = cell.text.isEmpty() ? 1 : cell.text.toLongLong(&isNumber);
        if (isNumber && isCount(value))
            tally = value;
        else
            complain(cell, QString("the tally %1 is no whole number from 0 to %2")
                               .arg(quoted(cell.text))
                               .arg(mostChosen));
    }

    void readRight(const Cell& cell, int column, Question& question)
    {
        const QString letter = letterOf(cell.text);
        const bool isLetter = !letter.isEmpty() && cell.text.front().isLetter();
        question.spot(Field::Right) = cell.spot;
        if (column == number(Field::Right) && isLetter) {
            question.right = letter;
            return;
        }
        question.key = cell.text;
        question.findRight();
        if (column == answer && isLetter && !question.right.isEmpty() && question.right != letter)
            complain(cell, QString("%1 may be the letter or the text of the right "
                                   "option; call the column \"right\" or "
                                   "\"correct_answer\"")
                               .arg(quoted(cell.text)));
        if (column != key && question.right.isEmpty())
            question.right = letter.isEmpty() && cell.text.size() == 1 ? cell.text : letter;
    }

    void readQuestion(Record& cells)
    {
        Question question;
        question.place = {file_, cells.front().spot.line};
        const Cell* right = nullptr;
        int rightColumn = unused;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const int column = columns_[i];
            if (column >= firstTally) {
                readTally(cells[i], question.tallies.at(static_cast<std::size_t>(column - firstTally)));
            } else if (column == number(Field::Right) || column == key || column == answer) {
                // A letter goes before a text.
                if (!right || right->text.isEmpty() || (column < rightColumn && !cells[i].text.isEmpty())) {
                    right = &cells[i];
                    rightColumn = column;
                }
            } else if (column != unused) {
                question.at(static_cast<Field>(column)) = std::move(cells[i].text);
                question.spot(static_cast<Field>(column)) = cells[i].spot;
            }
        }
        question.level = levelOf(question.level);
        readRight(*right, rightColumn, question);
        intake_.accept(std::move(question));
    }

    Records records_;
    QString file_;
    Intake& intake_;
    Record header_;
    std::vector<int> columns_;
};

} // namespace

void readCsv(const TextFile& file, Intake& intake)
{
    CsvSource(file, intake).read();
}

QString csvCell(QString text)
{
    static const QRegularExpression special("[\",;\t\r\n]");
    return text.contains(special) ? u'"' + text.replace(u'"', "\"\"") + u'"' : text;
}

bool isTabSeparated(const TextFile& file)
{
    return knownColumns(file, u'\t') > 2;
}

QByteArray writeCsv(const std::vector<Question>& questions)
{
    QString content(QChar::ByteOrderMark);
    content += "level,question,A,B,C,D,right,tally A,tally B,tally C,tally D\r\n";
    for (const Question& question : questions) {
        QStringList cells;
        for (const Field field : playedFields)
            cells << csvCell(question.at(field));
        for (const qint64 tally : question.tallies)
            cells << QString::number(tally);
        content += cells.join(u',') + "\r\n";
    }
    return content.toUtf8();
}

} // namespace bank
