// Prints what drawing, reading and walking questions cost on a small bank and on one of a million
// questions. The bound of the draw is a ratio to a floor that is measured in the same run.

#include "bench/measure.h"
#include "db/recordset.h"

#include <QTemporaryDir>

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
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

void compareDraw(const char* name, const QString& path)
{
    db::Connection connection;
    connection.Open(path);
    SQLite::Database engine(path.toStdString(), SQLite::OPEN_READONLY);
    std::vector<double> ratios;
    std::vector<double> floors;
    std::vector<double> draws;
    for (const double share : {0.02, 0.5, 0.98, 0.25, 0.75, 0.1, 0.9, 0.4, 0.6}) {
        qint64 rows = 0;
        qint64 drawn = 0;
        floors.push_back(milliseconds([&] { rows = floorPass(engine.getHandle()); }));
        draws.push_back(milliseconds([&] { drawn = draw(connection, share); }));
        ratios.push_back(rows == drawn ? draws.back() / floors.back() : -1);
    }
    std::printf("draw, %-16s floor %7.1f ms   draw %7.1f ms   ratio %.2f\n", name, median(floors),
                median(draws), median(ratios));
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
    std::printf("read a row       300: %5.1f us   1,000,000: %5.1f us   ratio %.2f\n", median(smalls),
                median(larges), median(larges) / median(smalls));
}

void printMoves(const char* name, const QString& path)
{
    db::Connection connection;
    db::Recordset rows;
    const double opening = milliseconds([&] {
        connection.Open(path);
        rows.Open(db::statements::allQuestions(), connection, db::Lock::Optimistic);
    });
    std::printf("walk, %-10s open %.2f ms", name, opening);
    const std::pair<const char*, void (db::Recordset::*)()> moves[] = {
        {"first", &db::Recordset::MoveFirst},
        {"next", &db::Recordset::MoveNext},
        {"last", &db::Recordset::MoveLast},
        {"previous", &db::Recordset::MovePrevious}};
    for (const auto& [move, method] : moves) {
        std::printf("   %s %.2f ms", move, milliseconds([&, method = method] {
                        (rows.*method)();
                        (void)rows.text("question");
                    }));
    }
    std::printf("\n");
}

long kilobytes(const std::string& entry)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(entry))
            return std::stol(line.substr(entry.size()));
    return 0;
}

void printMemory(const char* name, const QString& path)
{
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts anew
    const long before = kilobytes("VmRSS:");
    db::Connection connection;
    connection.Open(path);
    db::Recordset rows;
    rows.Open(db::statements::allQuestions(), connection, db::Lock::Optimistic);
    for (int i = 0; i < 1000 && !rows.Eof(); ++i, rows.MoveNext())
        (void)rows.text("question");
    std::printf("memory, %-10s 1000 rows walked: peak growth %ld kB\n", name, kilobytes("VmHWM:") - before);
}

} // namespace

int main()
{
    const QTemporaryDir directory;
    const QString small = makeBank(directory.filePath("small.orv"), few);
    const QString large = makeBank(directory.filePath("large.orv"), many);
    printMemory("300", small);
    printMemory("1,000,000", large);
    printMoves("300", small);
    printMoves("1,000,000", large);
    compareReading(small, large);
    compareDraw("with index", large);
    compareDraw("without index", makeBank(directory.filePath("bare.orv"), many, false));
    return 0;
}
