#include "bank/actions.h"

#include "bank/create.h"
#include "bank/new_file.h"
#include "db/words.h"

#include <QFile>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace bank::actions {
namespace {

namespace fs = std::filesystem;

constexpr int patienceMs = 10'000;

/// Throws a Failure about `file` for what the engine complains about during `work`.
template <class Work>
auto attempting(db::Attempt attempt, const fs::path& file, Work work)
{
    try {
        return work();
    } catch (const SQLite::Exception& error) {
        throw db::failed(attempt, nameOf(file), error);
    }
}

/// Copies a quiz database as it is at one moment, also while other programs use it. Throws Failure or
/// db::Failure, and leaves no file behind, if `target` exists already, if anything cannot be read or written,
/// or if it is damaged.
void backUp(const fs::path& original, const fs::path& target, Progress& progress)
{
    const Store usable(original, progress); // or a message why it is not
    const QByteArray content = attempting(db::Attempt::Read, original, [&] {
        SQLite::Database source(original.string(), SQLite::OPEN_READONLY, patienceMs);
        const SQLite::Transaction oneMoment(source);
        const std::string found = source.execAndGet("pragma integrity_check(1)").getString();
        if (found != "ok")
            throw SQLite::Exception(found, SQLITE_CORRUPT);
        return contentOf(source);
    });
    writeNew(target, content, Readers::Owner);
}

/// Makes a new file without accounts and with all tallies at 1, to give away.
void copyForOthers(const fs::path& file, const fs::path& target, Progress& progress)
{
    Store store(file, progress);
    for (const auto& table : {db::schema::questions, db::schema::locking})
        store.require(table);
    Bank bank{store.questions(), store.prompts()};
    for (Question& question : bank.questions)
        question.tallies = Question().tallies;
    createDatabase(target, bank, {}, progress);
}

/// Copies all pages into a database that other programs may have open, as one transaction.
void copyInto(const fs::path& file, const fs::path& backup, Progress& progress)
{
    SQLite::Database source(backup.string(), SQLite::OPEN_READONLY, patienceMs);
    SQLite::Database target(file.string(), SQLite::OPEN_READWRITE, patienceMs);
    // A read transaction around the steps: without it a writer between two of them would start the copy anew.
    const SQLite::Transaction oneMoment(source);
    (void)source.execAndGet("select count(*) from sqlite_schema");
    SQLite::Backup copying(target, source);
    progress.begin("Copying page");
    constexpr int pagesPerStep = 512;
    for (int result = SQLITE_OK; result != SQLITE_DONE; progress.step(pagesPerStep)) {
        result = copying.executeStep(pagesPerStep);
        if (result == SQLITE_BUSY || result == SQLITE_LOCKED)
            throw SQLite::Exception("database is locked", result);
    }
}

/// Throws db::Failure or Failure unless `file` is a sound quiz database.
void requireBank(const fs::path& file, Progress& progress)
{
    Store store(file, progress);
    for (const auto& table : db::schema::tables)
        store.require(table);
    store.checkIntegrity();
}

/// A name beside `file` that no file has.
fs::path nameAside(const fs::path& file)
{
    fs::path aside = file.string() + ".before-restore";
    std::error_code ignored;
    for (int number = 2; fs::exists(fs::symlink_status(aside, ignored)); ++number)
        aside = file.string() + ".before-restore-" + std::to_string(number);
    return aside;
}

/// Keeps what `file` has under another name. Returns whether it is a database that can be written to.
bool keepAside(const fs::path& file, const fs::path& aside, Progress& progress)
{
    try {
        backUp(file, aside, progress);
        return true;
    } catch (const db::Failure& failure) {
        using Cause = db::Failure::Cause;
        if (failure.cause() != Cause::NotADatabase && failure.cause() != Cause::Damaged)
            throw;
    }
    if (!QFile::rename(nameOf(file), nameOf(aside)))
        throw Failure(QString("%1 cannot be moved aside").arg(nameOf(file)));
    (void)QFile::rename(nameOf(file) + "-journal", nameOf(aside) + "-journal");
    return false;
}

/// Puts the content of `backup`, a sound quiz database, into `file`. What `file` had is kept in a new file
/// beside it, whose path is returned; it is empty if there was no file. Throws like backUp(); `file` then
/// holds what it had.
fs::path restore(const fs::path& file, const fs::path& backup, Progress& progress)
{
    requireBank(backup, progress);
    std::error_code ignored;
    if (fs::equivalent(file, backup, ignored))
        throw Failure(QString("%1 is that file itself").arg(nameOf(backup)));
    fs::path aside = fs::exists(file, ignored) ? nameAside(file) : fs::path();
    if (!aside.empty() && keepAside(file, aside, progress))
        attempting(db::Attempt::Change, file, [&] { copyInto(file, backup, progress); });
    else
        backUp(backup, file, progress);
    return aside;
}

} // namespace

void backup(Command& command)
{
    (command.forOthers ? copyForOthers : backUp)(command.file, command.other, command.progress);
    command.progress.clear();
    command.out << command.other << " is a sound copy of " << command.file
                << (command.forOthers ? " without accounts and tallies" : "") << ".\n";
}

void restoreBackup(Command& command)
{
    const auto aside = restore(command.file, command.other, command.progress);
    command.progress.clear();
    command.out << command.file << " holds again what " << command.other << " holds.\n";
    if (!aside.empty())
        command.out << "What it held is kept in " << aside.string() << ".\n";
}

} // namespace bank::actions
