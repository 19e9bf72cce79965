#include "bank/backup.h"

#include "bank/failure.h"
#include "bank/lines.h"
#include "bank/new_file.h"
#include "bank/store.h"
#include "db/words.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace bank {
namespace {

constexpr int patienceMs = 10'000;

void copy(SQLite::Database& source, SQLite::Database& target, Progress& progress)
{
    constexpr int pagesPerStep = 512;
    // A read transaction around the steps: without it a writer between two of them would start the copy anew.
    const SQLite::Transaction oneMoment(source);
    (void)source.execAndGet("select count(*) from sqlite_schema");
    SQLite::Backup backup(target, source);
    int result = SQLITE_OK;
    progress.begin("Copying page");
    while (result != SQLITE_DONE) {
        result = backup.executeStep(pagesPerStep);
        if (result == SQLITE_BUSY || result == SQLITE_LOCKED)
            throw SQLite::Exception("database is locked", result);
        progress.step(pagesPerStep);
    }
}

void requireSound(SQLite::Database& copy, const std::filesystem::path& target)
{
    const std::string found = copy.execAndGet("pragma integrity_check(1)").getString();
    if (found != "ok") {
        throw Failure(QString("%1 was not written, the copy would be damaged: %2")
                          .arg(nameOf(target), QString::fromStdString(found)));
    }
}

} // namespace

void backUp(const std::filesystem::path& file, const std::filesystem::path& target, Progress& progress)
{
    const Store usable(file); // or a message why it is not
    NewFile newFile(target);
    try {
        SQLite::Database source(file.string(), SQLite::OPEN_READONLY, patienceMs);
        SQLite::Database database(newFile.temporary().string(), SQLite::OPEN_READWRITE, patienceMs);
        copy(source, database, progress);
        // A copy of a file with a write-ahead log would keep part of its content in a second file.
        database.exec("pragma journal_mode = delete");
        requireSound(database, target);
    } catch (const SQLite::Exception& error) {
        throw db::failed(db::Attempt::Read, nameOf(file), error);
    }
    newFile.publish();
}

} // namespace bank
