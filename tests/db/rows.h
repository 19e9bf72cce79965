#pragma once

#include "db/round.h"
#include "support/bank.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <tuple>

namespace db_test {

using namespace db::statements;
using namespace std::chrono_literals;
using Cause = db::Failure::Cause;
using support::Bank;

inline db::Connection connect(const Bank& bank, std::chrono::milliseconds patience = 40ms)
{
    db::Connection connection;
    connection.Open(bank.path(), patience);
    return connection;
}

/// The rows of `query`, for changes, through a connection of their own.
inline db::Recordset open(const Bank& bank, const db::Query& query)
{
    db::Recordset rows;
    auto connection = connect(bank);
    rows.Open(query, connection, db::Lock::Optimistic);
    return rows;
}

inline std::string sign(const db::Failure& failure)
{
    const std::map<Cause, const char*> names = {{Cause::RowGone, "gone"},
                                                {Cause::RowChanged, "changed"},
                                                {Cause::Locked, "locked"},
                                                {Cause::ReadOnly, "readonly"},
                                                {Cause::Other, ""}};
    return std::string("!") + names.at(failure.cause());
}

/// Where the recordset stands: "bof", "eof", "none" for both, else `field`, or a "!" and its Failure.
inline std::string place(const db::Recordset& rows, const char* field = "question_id")
{
    if (rows.Bof() || rows.Eof())
        return rows.Bof() && rows.Eof() ? "none" : rows.Bof() ? "bof" : "eof";
    try {
        return rows.text(field).toStdString();
    } catch (const db::Failure& failure) {
        return sign(failure);
    }
}

inline void act(db::Recordset& rows, const std::string& move)
{
    move == "first"    ? rows.MoveFirst()
    : move == "last"   ? rows.MoveLast()
    : move == "new"    ? rows.AddNew()
    : move == "set"    ? rows.set("answer1", "mine")
    : move == "number" ? rows.set("Question_ID", 9)
    : move == "update" ? rows.Update()
    : move == "delete" ? rows.Delete()
                       : rows.Move(std::stoll(move));
}

/// Does the moves one after the other and tells the place after each, behind a "!" and the Failure if the
/// move failed. Moves are "first", "last", numbers of rows, "new", "set" (the first answer), "number" (sets
/// that of the question), "update" and "delete".
inline std::string trace(db::Recordset& rows, const std::string& moves, const char* field = "question_id")
{
    std::istringstream words(moves);
    std::string places;
    for (std::string move; words >> move;) {
        places += places.empty() ? "" : " ";
        try {
            act(rows, move);
        } catch (const db::Failure& failure) {
            places += sign(failure) + (failure.cause() == Cause::Other ? "" : ":");
        }
        places += place(rows, field);
    }
    return places;
}

/// The rows that a round passes, by their question_id, taken so many at a time.
inline std::string round(const db::Recordset& rows, qint64 most)
{
    static constexpr std::array fields = {"question_id"};
    db::Round round(rows, fields);
    QStringList passed;
    for (auto slice = round.next(most); !slice.empty() && passed.size() < 99; slice = round.next(most))
        for (const db::Passed& row : slice)
            passed << row.texts.join("") + ",";
    return passed.join("").toStdString();
}

/// The Failure that `work` throws.
inline db::Failure failureOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const db::Failure& failure) {
        return failure;
    }
    throw std::logic_error("no Failure was thrown");
}

} // namespace db_test
