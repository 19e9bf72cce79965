#include "support/bank.h"

#include <QDir>
#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>

namespace support {

namespace {

constexpr const char* schema = R"(
create table questions (question_id integer primary key, question text, answer1 text, answer2 text, answer3 text,
    answer4 text, correct_answer text, Level text, a integer, b integer, c integer, d integer);
create table users (username text, password text);
create table locking (message text);
insert into locking values ('shall I lock it?');
with level(l) as (values (1), (2), (3)), number(n) as (values (1), (2), (3), (4), (5))
insert into questions
    select l * 10 + n, 'Question ' || l || '.' || n, l || '.' || n || ' one', l || '.' || n || ' two',
        l || '.' || n || ' three', l || '.' || n || ' four', l || '.' || n || ' Three', l, 1, 1, 1, 1
    from level, number order by l, n;
)";

} // namespace

// Thousands of durable writes take minutes on a disk.
Bank::Bank()
    : directory_((QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : QDir::tempPath()) + "/orvanta-XXXXXX"),
      former_(QDir::currentPath())
{
    QDir::setCurrent(directory_.path());
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(schema);
}

Bank::~Bank()
{
    QDir::setCurrent(former_);
}

void Bank::execute(const std::string& sql) const
{
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE).exec(sql);
}

std::string Bank::value(const std::string& sql) const
{
    // For changes too: what a killed program left half written is undone only so.
    return SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE).execAndGet(sql).getString();
}

} // namespace support
