#pragma once

#include "db/connection.h"

#include <QTemporaryDir>

#include <SQLiteCpp/Database.h>

#include <functional>
#include <ostream>
#include <string>

namespace db {
// Lets a failed comparison print what it compared.
inline std::ostream& operator<<(std::ostream& out, Failure::Cause cause)
{
    return out << "Cause " << static_cast<int>(cause);
}
} // namespace db

namespace db_test {

using Cause = db::Failure::Cause;
using namespace std::chrono_literals;

/// Three questions of level 1 (ids 1, 4, 6), one of level 2 (id 5), two messages and one account.
extern const char* const usualBank;

inline const QString level1 = QStringLiteral("1");

/// A bank file in a directory of its own, looked at through an engine connection of its own.
class Bank
{
public:
    explicit Bank(const std::string& script = usualBank);

    [[nodiscard]] QString path() const { return directory_.filePath(QStringLiteral("orv.orv")); }
    [[nodiscard]] QString folder() const { return directory_.path(); }

    void run(const std::string& script) const;

    /// The rows of `sql` as text: columns apart by a blank, rows by a comma.
    [[nodiscard]] std::string read(const std::string& sql) const;

    [[nodiscard]] SQLite::Database engine() const;

private:
    QTemporaryDir directory_;
};

db::Connection connect(const Bank& bank, std::chrono::milliseconds patience = 40ms);
db::Recordset open(const db::Query& query, db::Connection connection);

/// Where the recordset stands: "bof", "eof", "none" for both, else `field`; a Failure is "!gone" or "!".
std::string place(const db::Recordset& rows, const char* field = "question_id");

/// Does the moves one after the other and tells the place after each, behind a "!" if the move failed.
/// Moves are "first", "last", "next", "previous", "delete" and numbers of rows.
std::string trace(db::Recordset& rows, const std::string& moves, const char* field = "question_id");

/// The Failure that `work` throws.
db::Failure failureOf(const std::function<void()>& work);

inline Cause causeOf(const std::function<void()>& work)
{
    return failureOf(work).cause();
}

} // namespace db_test
