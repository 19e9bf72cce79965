#include "bank/create.h"

#include "bank/failure.h"
#include "bank/new_file.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>

namespace bank {
namespace {

// The journal mode is named because some builds of SQLite start with another one, and a database
// that is to be copied as one file must not keep part of its content in a second.
constexpr auto schema = R"(
PRAGMA journal_mode = DELETE;
CREATE TABLE questions (
    question_id INTEGER PRIMARY KEY,
    question TEXT,
    answer1 TEXT,
    answer2 TEXT,
    answer3 TEXT,
    answer4 TEXT,
    correct_answer TEXT,
    Level TEXT,
    a INTEGER DEFAULT 1,
    b INTEGER DEFAULT 1,
    c INTEGER DEFAULT 1,
    d INTEGER DEFAULT 1
);
CREATE INDEX questions_by_level ON questions (Level);
CREATE TABLE users (username TEXT, password TEXT);
CREATE TABLE locking (message TEXT);
)";

void fill(SQLite::Database& database, const Bank& bank, const Account& account)
{
    Insertion questions(SQLite::Statement(database, sql::insertQuestion));
    for (const Question& question : bank.questions)
        questions.add(question);
    SQLite::Statement prompts(database, sql::insertPrompt);
    for (const Prompt& prompt : bank.prompts) {
        SQLite::bind(prompts, prompt.message.toStdString());
        prompts.exec();
        prompts.reset();
    }
    SQLite::Statement user(database, sql::insertAccount);
    SQLite::bind(user, account.name, account.password);
    user.exec();
}

} // namespace

void createDatabase(const std::filesystem::path& file, const Bank& bank, const Account& account)
{
    NewFile newFile(file);
    try {
        SQLite::Database database(newFile.temporary().string(), SQLite::OPEN_READWRITE);
        database.exec(schema);
        SQLite::Transaction transaction(database);
        fill(database, bank, account);
        transaction.commit();
    } catch (const SQLite::Exception& error) {
        throw Failure(QString("%1 cannot be written: %2")
                          .arg(QString::fromStdString(file.string()), QString::fromUtf8(error.what())));
    }
    newFile.publish();
}

} // namespace bank
