#include "bank/store.h"

#include "bank/lines.h"
#include "bank/rules.h"
#include "db/layout.h"

#include <limits>

namespace bank {
namespace {

constexpr const char* selectQuestions =
    "select question_id, question, answer1, answer2, answer3, answer4, correct_answer, Level,"
    " a, b, c, d, Level in ('1', '2', '3') from questions order by cast(question_id as integer), question_id";

QStringList fieldsOf(const QString& table)
{
    const bool isQuestions = table == "questions";
    const char* const names = isQuestions
                                  ? "question_id question answer1 answer2 answer3 answer4 correct_answer "
                                    "Level a b c d"
                              : table == "users" ? "username password"
                                                 : "message";
    return QString::fromLatin1(names).split(u' ');
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
        question.options.at(static_cast<std::size_t>(i)) = textOf(row, 2 + i);
        question.tallies.at(static_cast<std::size_t>(i)) = row.getColumn(8 + i).getInt64();
    }
    question.key = textOf(row, 6);
    question.findRight();
    question.level = textOf(row, 7);
    if (row.getColumn(12).getInt() == 0 && isLevel(question.level))
        question.level += " (a number, not a text)";
    return question;
}

} // namespace

namespace sql {
const char* const insertQuestion =
    "insert into questions (question_id, question, answer1, answer2, answer3, answer4,"
    " correct_answer, Level, a, b, c, d) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";
const char* const insertPrompt = "insert into locking (message) values (?)";
const char* const insertAccount = "insert into users (username, password) values (?, ?)";
} // namespace sql

Insertion::Insertion(SQLite::Statement statement, qint64 firstId)
    : statement_(std::move(statement)), id_(firstId)
{
}

void Insertion::add(const Question& question)
{
    if (id_ == 0)
        statement_.bind(1);
    else
        statement_.bind(1, static_cast<int64_t>(id_++));
    // They must live until the row is written.
    const std::array<std::string, 7> texts = {
        question.text.toStdString(),       question.options[0].toStdString(),
        question.options[1].toStdString(), question.options[2].toStdString(),
        question.options[3].toStdString(), question.rightOption().toStdString(),
        question.level.toStdString()};
    int place = 2;
    for (const std::string& text : texts)
        statement_.bindNoCopy(place++, text);
    for (const qint64 tally : question.tallies)
        statement_.bind(place++, static_cast<int64_t>(tally));
    statement_.exec();
    statement_.reset();
}

Store::Store(const std::filesystem::path& file)
    : file_(nameOf(file)), handle_(file_, std::chrono::seconds(10))
{
    // Nothing reaches the file before a transaction is whole, so that what fails leaves it untouched.
    handle_.reading([&] { handle_.prepared("pragma cache_spill = off").executeStep(); });
}

void Store::require(const char* table)
{
    const QString name = QString::fromLatin1(table);
    db::layoutOf(handle_, name, fieldsOf(name));
}

void Store::checkIntegrity()
{
    const std::string found = handle_.reading([&] {
        auto statement = handle_.prepared("pragma quick_check(1)");
        statement.executeStep();
        return statement.getColumn(0).getString();
    });
    if (found != "ok")
        throw Failure(QString("%1 is damaged: %2").arg(file_, QString::fromStdString(found)));
}

std::vector<Question> Store::questions(Progress& progress)
{
    return handle_.reading([&] {
        std::vector<Question> questions;
        auto rows = handle_.prepared(selectQuestions);
        progress.begin("Reading question");
        while (rows.executeStep()) {
            questions.push_back(questionOf(rows, file_));
            progress.step();
        }
        return questions;
    });
}

std::vector<Prompt> Store::prompts()
{
    return handle_.reading([&] {
        std::vector<Prompt> prompts;
        auto rows = handle_.prepared("select message from locking");
        while (rows.executeStep())
            prompts.push_back({{file_}, textOf(rows, 0)});
        return prompts;
    });
}

std::vector<Account> Store::accounts()
{
    return handle_.reading([&] {
        std::vector<Account> accounts;
        auto rows = handle_.prepared("select username, password from users");
        while (rows.executeStep())
            accounts.push_back({rows.getColumn(0).getString(), rows.getColumn(1).getString()});
        return accounts;
    });
}

void Store::addQuestions(const std::vector<Question>& questions, Progress& progress)
{
    qint64 firstId = 0;
    if (!db::layoutOf(handle_, "questions", {}).idIsRowNumber) {
        auto largest = handle_.prepared(db::sql::largestId);
        largest.executeStep();
        const qint64 last = largest.getColumn(0).getInt64();
        if (last > std::numeric_limits<qint64>::max() - 1 - static_cast<qint64>(questions.size()))
            throw db::failed(db::Attempt::Change, handle_.path(), db::reasons::noNumberLeft);
        firstId = last + 1;
    }
    Insertion insertion(handle_.prepared(sql::insertQuestion), firstId);
    progress.begin("Writing question", static_cast<long long>(questions.size()));
    for (const Question& question : questions) {
        insertion.add(question);
        progress.step();
    }
}

void Store::addPrompts(const std::vector<Prompt>& prompts)
{
    for (const Prompt& prompt : prompts)
        run(sql::insertPrompt, {prompt.message.toStdString()});
}

void Store::removeQuestions()
{
    run("delete from questions");
}

void Store::removePrompts()
{
    run("delete from locking");
}

void Store::addAccount(const Account& account)
{
    run(sql::insertAccount, {account.name, account.password});
}

void Store::setPassword(const Account& account)
{
    run("update users set password = ? where username = ?", {account.password, account.name});
}

void Store::run(const char* sql, std::initializer_list<std::string> values)
{
    auto statement = handle_.prepared(sql);
    int place = 0;
    for (const std::string& value : values)
        statement.bind(++place, value);
    statement.exec();
}

} // namespace bank
