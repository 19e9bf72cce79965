#include "bank.h"

#include <SQLiteCpp/Statement.h>

#include <gtest/gtest.h>

#include <sstream>

namespace db_test {

const char* const usualBank =
    "create table questions (question_id integer primary key, question text, answer1 text, answer2 text,"
    " answer3 text, answer4 text, correct_answer text, Level text, a integer, b integer, c integer, d "
    "integer);"
    "insert into questions values (1, 'one', 'p', 'q', 'r', 's', 'P', '1', 1, 1, 1, 1),"
    " (4, 'four', 'p', 'q', 'r', 's', 'P', '1', 5, 6, 7, 8), (5, 'five', 'p', 'q', 'r', 's', 'P', '2', 1, 1, "
    "1, 1),"
    " (6, 'six', 'p', 'q', 'r', 's', 'P', '1', 1, 1, 1, 1);"
    "create table users (username text, password text); insert into users values ('sonia', 'let me in');"
    "create table locking (message text); insert into locking values ('sure?'), ('really?');";

Bank::Bank(const std::string& script)
{
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("pragma synchronous = off;" + script);
}

void Bank::run(const std::string& script) const
{
    engine().exec("pragma synchronous = off;" + script);
}

std::string Bank::read(const std::string& sql) const
{
    auto database = engine();
    SQLite::Statement statement(database, sql);
    std::string text;
    while (statement.executeStep()) {
        text += text.empty() ? "" : ",";
        for (int i = 0; i < statement.getColumnCount(); ++i) {
            text += (i == 0 ? "" : " ") + statement.getColumn(i).getString();
        }
    }
    return text;
}

SQLite::Database Bank::engine() const
{
    return {path().toStdString(), SQLite::OPEN_READWRITE};
}

db::Connection connect(const Bank& bank, std::chrono::milliseconds patience)
{
    db::Connection connection;
    connection.Open(bank.path(), patience);
    return connection;
}

db::Recordset open(const db::Query& query, db::Connection connection)
{
    db::Recordset rows;
    rows.Open(query, connection, db::Lock::Optimistic);
    return rows;
}

std::string place(const db::Recordset& rows, const char* field)
{
    if (rows.Bof() || rows.Eof()) {
        return rows.Bof() && rows.Eof() ? "none" : rows.Bof() ? "bof" : "eof";
    }
    try {
        return rows.text(field).toStdString();
    } catch (const db::Failure& failure) {
        return failure.cause() == Cause::RowGone ? "!gone" : "!";
    }
}

std::string trace(db::Recordset& rows, const std::string& moves, const char* field)
{
    std::istringstream words(moves);
    std::string places;
    for (std::string move; words >> move;) {
        bool refused = false;
        try {
            move == "first"      ? rows.MoveFirst()
            : move == "last"     ? rows.MoveLast()
            : move == "next"     ? rows.MoveNext()
            : move == "previous" ? rows.MovePrevious()
            : move == "delete"   ? rows.Delete()
                                 : rows.Move(std::stoll(move));
        } catch (const db::Failure&) {
            refused = true;
        }
        places += std::string(refused ? " !" : " ") + place(rows, field);
    }
    return places.substr(1);
}

db::Failure failureOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const db::Failure& failure) {
        return failure;
    }
    ADD_FAILURE() << "no Failure was thrown";
    return {Cause::Other, {}};
}

} // namespace db_test
