#include "rows.h"

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

std::string place(const db::Recordset& rows, const char* field)
{
    if (rows.Bof() || rows.Eof())
        return rows.Bof() && rows.Eof() ? "none" : rows.Bof() ? "bof" : "eof";
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
        places += places.empty() ? "" : " ";
        try {
            move == "first"    ? rows.MoveFirst()
            : move == "last"   ? rows.MoveLast()
            : move == "delete" ? rows.Delete()
                               : rows.Move(std::stoll(move));
        } catch (const db::Failure&) {
            places += "!";
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
