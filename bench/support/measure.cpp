#include "bench/measure.h"

#include <SQLiteCpp/Database.h>

#include <algorithm>
#include <fstream>

namespace bench {

double milliseconds(std::chrono::steady_clock::duration span)
{
    return std::chrono::duration<double, std::milli>(span).count();
}

double milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return milliseconds(std::chrono::steady_clock::now() - start);
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

double mebibytes(const std::string& kind, const std::string& process)
{
    std::ifstream sums("/proc/" + process + "/smaps_rollup");
    for (std::string word; sums >> word;) {
        double kilobytes = 0;
        if (word == kind + ":" && sums >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

QString makeBank(const QString& path, int questions, bool withIndex)
{
    SQLite::Database bank(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    bank.exec(
        "pragma synchronous = off; begin;"
        "create table questions (question_id integer primary key, question text, answer1 text, answer2 text,"
        " answer3 text, answer4 text, correct_answer text, Level text, a integer, b integer, c integer,"
        " d integer);"
        "create table users (username text, password text);"
        "create table locking (message text);"
        "insert into users values ('owner', 'secret'); insert into locking values ('Shall it be locked?')");
    bank.exec(
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
        std::to_string(questions) +
        ") insert into questions select i, 'What is the answer to the question with the number ' || i || '?',"
        " 'first ' || i, 'second ' || i, 'third ' || i, 'fourth ' || i, 'first ' || i,"
        " cast(1 + i % 3 as text), 1, 1, 1, 1 from n where i <= " +
        std::to_string(questions));
    bank.exec(withIndex ? "create index levels on questions (Level); commit" : "commit");
    return path;
}

} // namespace bench
