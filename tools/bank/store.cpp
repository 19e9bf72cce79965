#include "bank/store.h"

#include "bank/failure.h"
#include "bank/lines.h"
#include "bank/rules.h"
#include "bank/text.h"
#include "db/layout.h"
#include "db/sql.h"

#include <limits>

namespace bank {
namespace {

namespace schema = db::schema;

constexpr auto patience = std::chrono::seconds(1); ///< of one attempt,
constexpr int attempts = 10;                       ///< and how often it is made

std::string named(const char* before, db::Fields fields, const char* after)
{
    std::string text;
    for (const char* const field : fields)
        text.append(text.empty() ? "" : ", ").append(field).append(after);
    return before + text;
}

// In the order of schema::questionFields.
constexpr int optionColumn = 2;
constexpr int keyColumn = 6;
constexpr int levelColumn = 7;
constexpr int tallyColumn = 8;

std::string selection(const schema::Table& table)
{
    return named("select ", table.fields, "") + " from " + table.name;
}

QString textOf(SQLite::Statement& row, int column)
{
    // The column object must outlive the text that it points to.
    const SQLite::Column value = row.getColumn(column);
    const char* const text = value.getText();
    return QString::fromUtf8(text, value.getBytes());
}

Question questionOf(SQLite::Statement& row, const QString& file)
{
    Question question;
    question.place = {file, 0, 0, row.getColumn(0).getInt64()};
    question.text = textOf(row, 1);
    for (int i = 0; i < 4; ++i) {
        const SQLite::Column tally = row.getColumn(tallyColumn + i);
        question.options.at(static_cast<std::size_t>(i)) = textOf(row, optionColumn + i);
        question.tallies.at(static_cast<std::size_t>(i)) = tally.isInteger() ? tally.getInt64() : -1;
    }
    question.key = textOf(row, keyColumn);
    question.findRight();
    question.level = textOf(row, levelColumn);
    if (isLevel(question.level) && !row.getColumn(levelColumn).isText())
        question.level += " (a number, not a text)";
    return question;
}

/// The fields of a question but its number.
constexpr db::Fields writtenFields = db::Fields(schema::questionFields).subspan(1);

/// Binds them from `place` on, and runs the statement.
void write(SQLite::Statement& statement, int place, const Question& question)
{
    // They must live until the row is written.
    const std::array<std::string, 7> texts = {
        question.text.toStdString(),       question.options[0].toStdString(),
        question.options[1].toStdString(), question.options[2].toStdString(),
        question.options[3].toStdString(), question.rightOption().toStdString(),
        question.level.toStdString()};
    for (const std::string& text : texts)
        statement.bindNoCopy(place++, text);
    for (const qint64 tally : question.tallies)
        statement.bind(place++, static_cast<int64_t>(tally));
    statement.exec();
    statement.reset();
}

} // namespace

Store::Store(const std::filesystem::path& file, Progress& progress) : file_(nameOf(file)), progress_(progress)
{
    patiently([&] {
        handle_ = std::make_unique<db::Handle>(file_, patience);
        // Nothing reaches the file before a transaction is whole, so that what fails leaves it untouched.
        handle_->reading([&] { handle_->prepared("pragma cache_spill = off").executeStep(); });
    });
}

void Store::wait(const db::Failure& failure, int attempt)
{
    if (failure.cause() != db::Failure::Cause::Locked || attempt == attempts)
        throw failure;
    if (attempt == 1)
        progress_.tell(QString("%1 is in use by another program; waiting up to %2 seconds for it")
                           .arg(file_)
                           .arg(attempts - 1));
}

void Store::require(const schema::Table& table)
{
    patiently([&] { db::layoutOf(*handle_, table); });
}

void Store::checkIntegrity()
{
    const std::string found = reading([&] {
        auto statement = handle_->prepared("pragma quick_check(1)");
        statement.executeStep();
        return statement.getColumn(0).getString();
    });
    if (found != "ok")
        throw Failure(QString("%1 is damaged: %2").arg(file_, QString::fromStdString(found)));
}

std::vector<Question> Store::questions()
{
    const std::string id = schema::questionId;
    progress_.begin("Reading question");
    return rows(selection(schema::questions) + " order by cast(" + id + " as integer), " + id,
                [&](SQLite::Statement& row) { return questionOf(row, file_); });
}

std::vector<Prompt> Store::prompts()
{
    return rows(selection(schema::locking), [&](SQLite::Statement& row) {
        return Prompt{{file_}, textOf(row, 0)};
    });
}

std::vector<Account> Store::accounts()
{
    return rows(selection(schema::users), [](SQLite::Statement& row) {
        return Account{row.getColumn(0).getString(), row.getColumn(1).getString()};
    });
}

void Store::addQuestions(const std::vector<Question>& questions)
{
    auto insertion = handle_->prepared(db::sql::insertion(schema::questions.name, schema::questionFields));
    if (db::layoutOf(*handle_, schema::questions).idIsRowNumber)
        return insert(questions, insertion, progress_);
    auto largest = handle_->prepared(db::sql::largestId);
    largest.executeStep();
    qint64 id = largest.getColumn(0).getInt64();
    if (id > std::numeric_limits<qint64>::max() - 1 - static_cast<qint64>(questions.size()))
        throw db::failed(db::Attempt::Change, handle_->path(), db::reasons::noNumberLeft);
    insert(questions, insertion, progress_, &id);
}

void Store::changeQuestion(const Question& question)
{
    auto change =
        handle_->prepared(db::sql::change(schema::questions.name, writtenFields, schema::questionId));
    change.bind(static_cast<int>(writtenFields.size()) + 1, static_cast<int64_t>(question.place.id));
    write(change, 1, question);
}

void Store::resetTallies()
{
    run(named((std::string("update ") + schema::questions.name + " set ").c_str(), schema::tallies, " = 1"));
}

void Store::add(const schema::Table& table, const std::vector<db::Value>& row)
{
    run(db::sql::insertion(table.name, table.fields), row);
}

void Store::set(const schema::Table& table, const char* field, const db::Value& value, const char* keyField,
                const db::Value& of)
{
    run(db::sql::change(table.name, std::array{field}, keyField), {value, of});
}

void Store::remove(const schema::Table& table, const char* keyField, const db::Value& of)
{
    run(db::sql::deletion(table.name, keyField), {of});
}

void Store::clear(const schema::Table& table)
{
    run(std::string("delete from ") + table.name);
}

void insert(const std::vector<Question>& questions, SQLite::Statement& insertion, Progress& progress,
            qint64* id)
{
    progress.begin("Writing question", static_cast<long long>(questions.size()));
    for (const Question& question : questions) {
        if (id)
            insertion.bind(1, static_cast<int64_t>(++*id));
        write(insertion, 2, question);
        progress.step();
    }
}

} // namespace bank
