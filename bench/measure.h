#pragma once

#include <QTemporaryDir>

#include <SQLiteCpp/Database.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// What several benchmarks share.
namespace bench {

constexpr int many = 1'000'000;
constexpr int few = 300;

inline double milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// A question bank with an index on the levels if wanted; its path.
inline QString makeBank(const QTemporaryDir& directory, const QString& name, int questions, bool withIndex)
{
    QString path = directory.filePath(name);
    SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec(
        "pragma synchronous = off; begin;"
        "create table questions (question_id integer primary key, question text, answer1 text, answer2 text,"
        " answer3 text, answer4 text, correct_answer text, Level text, a integer, b integer, c integer,"
        " d integer)");
    database.exec(
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
        std::to_string(questions) +
        ") insert into questions select i, 'What is the answer to the question with the number ' || i || '?',"
        " 'first ' || i, 'second ' || i, 'third ' || i, 'fourth ' || i, 'first ' || i,"
        " cast(1 + i % 3 as text), 1, 1, 1, 1 from n");
    database.exec(withIndex ? "create index levels on questions (Level); commit" : "commit");
    return path;
}

} // namespace bench
