#include "bank/backup.h"

#include "bank/create.h"
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

/// Copies all pages within one transaction of each database.
void copy(SQLite::Database& source, SQLite::Database& target, const std::filesystem::path& name,
          Progress& progress)
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
            throw db::failed(db::Attempt::Change, nameOf(name),
                             SQLite::Exception("database is locked", result));
        progress.step(pagesPerStep);
    }
}

void requireSound(SQLite::Database& database, const std::filesystem::path& name)
{
    const std::string found = database.execAndGet("pragma integrity_check(1)").getString();
    if (found != "ok") {
        throw Failure(QString("%1 was not written, the copy would be damaged: %2")
                          .arg(nameOf(name), QString::fromStdString(found)));
    }
}

/// Throws db::Failure or Failure unless `file` is a sound quiz database.
void requireBank(const std::filesystem::path& file, Progress& progress)
{
    Store store(file, progress);
    for (const auto& table : db::schema::tables)
        store.require(table);
    store.checkIntegrity();
}

/// A name beside `file` that no file has.
std::filesystem::path nameAside(const std::filesystem::path& file)
{
    std::filesystem::path aside = file.string() + ".before-restore";
    std::error_code ignored;
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(aside, ignored)); ++number)
        aside = file.string() + ".before-restore-" + std::to_string(number);
    return aside;
}

/// Keeps what `file` has under another name. Returns whether it is a database that can be written to.
bool keepAside(const std::filesystem::path& file, const std::filesystem::path& aside, Progress& progress)
{
    try {
        backUp(file, aside, progress);
        return true;
    } catch (const db::Failure& failure) {
        using Cause = db::Failure::Cause;
        if (failure.cause() != Cause::NotADatabase && failure.cause() != Cause::Damaged)
            throw;
    } catch (const Failure&) {
        // A copy of it would be damaged, so that it is moved as it is.
    }
    if (renameWithoutReplacing(file, aside) != 0)
        throw Failure(QString("%1 cannot be moved aside").arg(nameOf(file)));
    (void)renameWithoutReplacing(file.string() + "-journal", aside.string() + "-journal");
    return false;
}

} // namespace

void backUp(const std::filesystem::path& original, const std::filesystem::path& target, Progress& progress)
{
    const Store usable(original, progress); // or a message why it is not
    NewFile newFile(target);
    try {
        SQLite::Database source(original.string(), SQLite::OPEN_READONLY, patienceMs);
        SQLite::Database database(newFile.temporary().string(), SQLite::OPEN_READWRITE, patienceMs);
        copy(source, database, original, progress);
        // A copy of a file with a write-ahead log would keep part of its content in a second file.
        database.exec("pragma journal_mode = delete");
        requireSound(database, target);
    } catch (const SQLite::Exception& error) {
        const bool isTarget = error.getErrorCode() == SQLITE_FULL || error.getErrorCode() == SQLITE_IOERR;
        throw db::failed(isTarget ? db::Attempt::Change : db::Attempt::Read,
                         nameOf(isTarget ? target : original), error);
    }
    newFile.publish();
}

void copyForOthers(const std::filesystem::path& file, const std::filesystem::path& target, Progress& progress)
{
    Store store(file, progress);
    for (const auto& table : {db::schema::questions, db::schema::locking})
        store.require(table);
    Bank bank{store.questions(), store.prompts()};
    for (Question& question : bank.questions)
        question.tallies = Question().tallies;
    createDatabase(target, bank, {}, progress);
}

std::filesystem::path restore(const std::filesystem::path& file, const std::filesystem::path& backup,
                              Progress& progress)
{
    requireBank(backup, progress);
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        backUp(backup, file, progress);
        return {};
    }
    if (std::filesystem::equivalent(file, backup, ignored))
        throw Failure(QString("%1 is that file itself").arg(nameOf(backup)));
    std::filesystem::path aside = nameAside(file);
    if (!keepAside(file, aside, progress)) {
        backUp(backup, file, progress);
        return aside;
    }
    try {
        SQLite::Database source(backup.string(), SQLite::OPEN_READONLY, patienceMs);
        SQLite::Database target(file.string(), SQLite::OPEN_READWRITE, patienceMs);
        copy(source, target, file, progress);
    } catch (const SQLite::Exception& error) {
        throw db::failed(db::Attempt::Change, nameOf(file), error);
    }
    return aside;
}

} // namespace bank
