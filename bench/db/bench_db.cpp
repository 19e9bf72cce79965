// Prints what drawing a question from a million costs beside one pass over the ids of its level, and what
// reading one costs beside reading it from a small bank.

#include "bench/figure.h"
#include "bench/measure.h"
#include "db/recordset.h"

#include <QTemporaryDir>

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <stdexcept>
#include <vector>

namespace {

using namespace bench;

// One pass over the ids of a level, as fast as the engine can make it.
int floorPass(sqlite3* engine)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(engine, "select question_id from questions where Level=?", -1, &statement, nullptr);
    sqlite3_bind_text(statement, 1, "2", 1, SQLITE_STATIC);
    int rows = 0;
    while (sqlite3_step(statement) == SQLITE_ROW)
        ++rows;
    sqlite3_finalize(statement);
    return rows;
}

// The draw of one question, step by step as the game does it; `share` is the random number.
qint64 draw(db::Connection& connection, double share)
{
    const auto level = "2";
    auto rows = connection.Execute(db::statements::questionIdsOfLevel(level));
    rows.MoveFirst();
    qint64 count = 0;
    for (; !rows.Eof(); rows.MoveNext())
        ++count;
    const auto offset = static_cast<qint64>(share * static_cast<double>(count - 1));
    rows.MoveFirst();
    rows.Move(offset);
    const qint64 id = rows.number("question_id");
    rows = connection.Execute(db::statements::questionsOfLevel(level));
    rows.MoveFirst();
    rows.Move(offset);
    for (const char* field : {"question", "answer1", "answer2", "answer3", "answer4"})
        (void)rows.text(field);
    return rows.number("question_id") == id ? count : -1;
}

void compareDraw(const char* what, const QString& path)
{
    db::Connection connection;
    connection.Open(path);
    SQLite::Database engine(path.toStdString(), SQLite::OPEN_READONLY);
    std::vector<double> floors;
    std::vector<double> draws;
    for (const double share : {0.02, 0.5, 0.98, 0.25, 0.75, 0.1, 0.9, 0.4, 0.6}) {
        qint64 rows = 0;
        qint64 drawn = 0;
        floors.push_back(milliseconds([&] { rows = floorPass(engine.getHandle()); }));
        draws.push_back(milliseconds([&] { drawn = draw(connection, share); }));
        if (rows != drawn)
            throw std::runtime_error("what was drawn is not the row that was meant");
    }
    print({what, draws, "ms", floors, 3});
}

double readOneRow(const QString& path)
{
    constexpr int reads = 2000;
    db::Connection connection;
    connection.Open(path);
    auto rows = connection.Execute(db::statements::questionsOfLevel("2"));
    rows.Move(50);
    return 1000.0 / reads * milliseconds([&] {
               for (int i = 0; i < reads; ++i) {
                   rows.Move(0);
                   (void)rows.text("question");
                   (void)rows.text("answer4");
               }
           });
}

void compareReading(const QString& small, const QString& large)
{
    std::vector<double> smalls;
    std::vector<double> larges;
    for (int i = 0; i < 7; ++i) {
        smalls.push_back(readOneRow(small));
        larges.push_back(readOneRow(large));
    }
    print({"reading a question of 1,000,000, against one of 300", larges, "us", smalls, 1.5});
}

} // namespace

int main()
{
    const QTemporaryDir directory;
    const QString small = makeBank(directory.filePath("small.orv"), few);
    const QString large = makeBank(directory.filePath("large.orv"), many);
    printHeading("bench_db");
    compareDraw("drawing from 1,000,000, against one walk over their ids", large);
    compareDraw("the same without an index on Level", makeBank(directory.filePath("bare.orv"), many, false));
    compareReading(small, large);
    return 0;
}
