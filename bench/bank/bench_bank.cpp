// Prints what importing and checking questions cost. The bound of the import is a ratio to a bare loop over a
// prepared insert, measured in the same run; the check must not cost more per question in a larger bank.

#include "bank/command.h"
#include "bench/figure.h"
#include "bench/measure.h"

#include <QTemporaryDir>

#include <sqlite3.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;
using Row = std::array<std::string, 7>; ///< the fields of the table from question to Level

constexpr int runs = 9;

/// Questions of made-up words, about as long as real ones.
std::vector<Row> makeRows(int count)
{
    std::mt19937 random(20260101); // NOLINT: the same rows in every run
    const auto word = [&] {
        std::string letters;
        for (int length = 2 + static_cast<int>(random() % 7); length > 0; --length)
            letters += static_cast<char>('a' + random() % 26);
        return letters;
    };
    std::vector<Row> rows;
    for (int i = 0; i < count; ++i) {
        Row row;
        row[0] = "Which";
        for (int words = 0; words < 8; ++words)
            row[0] += ' ' + word();
        row[0] += '?';
        for (std::size_t option = 1; option <= 4; ++option)
            row.at(option) = word() + ' ' + word() + static_cast<char>('0' + option);
        row[5] = row.at(1 + random() % 4);
        row[6] = static_cast<char>('1' + i % 3);
        rows.push_back(row);
    }
    return rows;
}

void writeCsv(const std::string& path, const std::vector<Row>& rows)
{
    std::ofstream file(path);
    file << "question,A,B,C,D,correct_answer,level\n";
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            file << row.at(i) << (i + 1 < row.size() ? "," : "\n");
}

void orvbank(std::vector<const char*> arguments)
{
    std::ostringstream out;
    arguments.insert(arguments.begin(), "orvbank");
    if (bank::run(static_cast<int>(arguments.size()), arguments.data(), out, out) == 1)
        throw std::runtime_error(out.str());
}

void bareInserts(const std::string& path, const std::vector<Row>& rows)
{
    sqlite3* engine = nullptr;
    sqlite3_open(path.c_str(), &engine);
    sqlite3_exec(engine, "begin immediate", nullptr, nullptr, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(engine,
                       "insert into questions (question, answer1, answer2, answer3, answer4, correct_answer,"
                       " Level, a, b, c, d) values (?, ?, ?, ?, ?, ?, ?, 1, 1, 1, 1)",
                       -1, &statement, nullptr);
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            sqlite3_bind_text(statement, static_cast<int>(i) + 1, row.at(i).c_str(),
                              static_cast<int>(row.at(i).size()), SQLITE_STATIC);
        }
        sqlite3_step(statement);
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
    sqlite3_exec(engine, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(engine);
}

void compareImport(const std::string& folder)
{
    const auto rows = makeRows(100'000);
    const std::string empty = folder + "/empty.orv";
    const std::string file = folder + "/bank.orv";
    const std::string csv = folder + "/questions.csv";
    makeBank(QString::fromStdString(empty), 0);
    writeCsv(csv, rows);
    const auto afresh = [&] {
        std::filesystem::copy_file(empty, file, std::filesystem::copy_options::overwrite_existing);
    };
    std::vector<double> floors;
    std::vector<double> imports;
    for (int i = 0; i < runs; ++i) {
        afresh();
        floors.push_back(milliseconds([&] { bareInserts(file, rows); }));
        afresh();
        imports.push_back(milliseconds([&] { orvbank({"import", file.c_str(), csv.c_str()}); }));
    }
    print({"importing 100,000, against bare inserts", imports, "ms", floors, 3});
}

void compareCheck(const std::string& folder)
{
    std::map<int, std::vector<double>> times; // microseconds a question
    for (const int count : {10'000, 100'000}) {
        const std::string file = folder + "/check" + std::to_string(count) + ".orv";
        makeBank(QString::fromStdString(file), 0);
        bareInserts(file, makeRows(count));
        for (int i = 0; i < 3; ++i)
            times[count].push_back(1000.0 / count * milliseconds([&] { orvbank({"check", file.c_str()}); }));
    }
    print({"checking 100,000, a question, against 10,000", times[100'000], "us", times[10'000], 1.5});
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    printHeading("bench_bank");
    compareImport(folder.path().toStdString());
    compareCheck(folder.path().toStdString());
    return 0;
}
