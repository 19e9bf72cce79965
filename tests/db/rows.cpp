#include "rows.h"

#include <map>
#include <sstream>

namespace db_test {

db::Connection connect(const Bank& bank, std::chrono::milliseconds patience)
{
    db::Connection connection;
    connection.Open(bank.path(), patience);
    return connection;
}

db::Recordset open(const Bank& bank, const db::Query& query)
{
    db::Recordset rows;
    auto connection = connect(bank);
    rows.Open(query, connection, db::Lock::Optimistic);
    return rows;
}

namespace {

std::string sign(const db::Failure& failure)
{
    const std::map<Cause, const char*> names = {{Cause::RowGone, "gone"},
                                                {Cause::RowChanged, "changed"},
                                                {Cause::Locked, "locked"},
                                                {Cause::ReadOnly, "readonly"},
                                                {Cause::Other, ""}};
    return std::string("!") + names.at(failure.cause());
}

void act(db::Recordset& rows, const std::string& move)
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

} // namespace

std::string place(const db::Recordset& rows, const char* field)
{
    if (rows.Bof() || rows.Eof())
        return rows.Bof() && rows.Eof() ? "none" : rows.Bof() ? "bof" : "eof";
    try {
        return rows.text(field).toStdString();
    } catch (const db::Failure& failure) {
        return sign(failure);
    }
}

std::string trace(db::Recordset& rows, const std::string& moves, const char* field)
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

std::string round(const db::Recordset& rows, qint64 most)
{
    static constexpr std::array fields = {"question_id"};
    db::Round round(rows, fields);
    QStringList passed;
    for (auto slice = round.next(most); !slice.empty() && passed.size() < 99; slice = round.next(most))
        for (const db::Passed& row : slice)
            passed << row.texts.join("") + ",";
    return passed.join("").toStdString();
}

db::Failure failureOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const db::Failure& failure) {
        return failure;
    }
    throw std::logic_error("no Failure was thrown");
}

} // namespace db_test
