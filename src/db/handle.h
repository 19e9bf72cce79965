#pragma once

#include "db/value.h"
#include "db/words.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <QString>

#include <chrono>
#include <span>
#include <string>

namespace db {

/// One open file, shared by a connection and its recordsets. Statements live only within reading() and
/// changing(), so no lock outlasts a call.
class Handle
{
public:
    Handle(const QString& path, std::chrono::milliseconds patience);

    [[nodiscard]] const QString& path() const { return path_; }

    /// `sql` with `values` bound to its first places.
    SQLite::Statement prepared(const std::string& sql, std::span<const Value> values = {});

    /// The number of the row that was inserted last.
    [[nodiscard]] qint64 lastRowNumber() const { return database_.getLastInsertRowid(); }

    /// Runs `work`, and tells what the engine complains about as a Failure.
    template <class Work>
    auto reading(Work work)
    {
        return attempt(Attempt::Read, work);
    }

    /// As reading(), with the file as it is at one moment.
    template <class Work>
    auto readingAtOnce(Work work)
    {
        return attempt(Attempt::Read, [&] {
            const SQLite::Transaction moment(database_);
            return work();
        });
    }

    /// Runs `work` as one durable transaction, which is undone when anything in it throws.
    template <class Work>
    auto changing(Work work)
    {
        return attempt(Attempt::Change, [&] {
            SQLite::Transaction transaction(database_, SQLite::TransactionBehavior::IMMEDIATE);
            if constexpr (std::is_void_v<decltype(work())>) {
                work();
                transaction.commit();
            } else {
                auto result = work();
                transaction.commit();
                return result;
            }
        });
    }

private:
    template <class Work>
    auto attempt(Attempt kind, Work work)
    {
        try {
            return work();
        } catch (const SQLite::Exception& error) {
            throw failed(kind, path_, error);
        }
    }

    QString path_;
    SQLite::Database database_;
};

} // namespace db
