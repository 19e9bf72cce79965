#include "db/words.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace db {
namespace {

using Cause = Failure::Cause;

constexpr Reason locked = {Cause::Locked, "another program is using it",
                           "Wait until the other program is done or close it, and try again."};
constexpr Reason damaged = {Cause::Damaged, "the file is damaged",
                            "Replace it with an undamaged copy and start again."};
constexpr Reason readOnly = {
    Cause::ReadOnly, "it is protected against changes",
    "If it is yours, allow changes to the file and to its folder; if not, ask its owner."};
constexpr Reason moved = {Cause::Missing, "the file was moved or deleted while it was in use",
                          "Put it back and start again."};
constexpr Reason diskFull = {Cause::Other, "the disk is full", "Free some space and try again."};
constexpr Reason diskError = {Cause::Other, "the disk reported an error", "Check the disk and try again."};
constexpr Reason tooBig = {Cause::Other, "one of the values is too long", "Shorten it and try again."};
constexpr Reason noMemory = {Cause::Other, "the computer has too little free memory",
                             "Close other programs and try again."};
constexpr Reason changedShape = {Cause::Other, "its tables are not as expected",
                                 "Put a complete question bank in its place and start again."};
constexpr Reason unknown = {Cause::Other, "the database engine reported an error",
                            "Start again; if it happens again, replace the question bank."};

struct EngineCode
{
    int code;
    Reason reason;
};

// Extended codes come before the primary code that they refine.
constexpr std::array engineCodes = {
    EngineCode{SQLITE_READONLY_DBMOVED, moved},
    EngineCode{SQLITE_BUSY, locked},
    EngineCode{SQLITE_LOCKED, locked},
    EngineCode{SQLITE_PROTOCOL, locked},
    EngineCode{SQLITE_READONLY, readOnly},
    EngineCode{SQLITE_CORRUPT, damaged},
    EngineCode{SQLITE_NOTADB, reasons::foreign},
    EngineCode{SQLITE_CANTOPEN, reasons::forbidden},
    EngineCode{SQLITE_PERM, reasons::forbidden},
    EngineCode{SQLITE_FULL, diskFull},
    EngineCode{SQLITE_IOERR, diskError},
    EngineCode{SQLITE_CONSTRAINT, reasons::refused},
    EngineCode{SQLITE_MISMATCH, reasons::refused},
    EngineCode{SQLITE_TOOBIG, tooBig},
    EngineCode{SQLITE_NOMEM, noMemory},
    EngineCode{SQLITE_ERROR, changedShape},
};

Reason reasonOf(const SQLite::Exception& error)
{
    const auto* const found = std::find_if(engineCodes.begin(), engineCodes.end(), [&](const EngineCode& e) {
        return e.code == error.getExtendedErrorCode() || e.code == (error.getErrorCode() & 0xff);
    });
    return found == engineCodes.end() ? unknown : found->reason;
}

QString sentences(Attempt attempt, const QString& path, const QString& why, const QString& advice)
{
    const char* const done = attempt == Attempt::Open   ? "opened"
                             : attempt == Attempt::Read ? "read"
                                                        : "changed";
    return QString("The question bank \"%1\" cannot be %2: %3. %4")
        .arg(path, QString::fromLatin1(done), why, advice);
}

Failure incomplete(Cause cause, const QString& path, const QString& why)
{
    return {cause, sentences(Attempt::Read, path, why, QString::fromLatin1(changedShape.advice))};
}

} // namespace

Failure failed(Attempt attempt, const QString& path, const Reason& reason)
{
    return {reason.cause,
            sentences(attempt, path, QString::fromLatin1(reason.why), QString::fromLatin1(reason.advice))};
}

Failure failed(Attempt attempt, const QString& path, const SQLite::Exception& error)
{
    const Failure plain = failed(attempt, path, reasonOf(error));
    return {plain.cause(), QString("%1 (%2)").arg(plain.message(), QString::fromUtf8(error.what()))};
}

Failure noTable(const QString& path, const QString& table)
{
    return incomplete(Cause::NoTable, path, QString("it has no usable table named %1").arg(table));
}

Failure noField(const QString& path, const QString& table, const QString& field)
{
    return incomplete(Cause::NoField, path, QString("its table %1 has no field named %2").arg(table, field));
}

Failure noNumbers(const QString& path, const QString& table, const QString& field)
{
    return incomplete(
        Cause::NoField, path,
        QString("the field %1 of its table %2 does not hold whole numbers alone").arg(field, table));
}

} // namespace db
