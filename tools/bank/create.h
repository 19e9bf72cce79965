#pragma once

#include "bank/store.h"

#include <QByteArray>

#include <optional>

namespace SQLite {
class Database;
}

namespace bank {

/// Makes the quiz database `file` (SQLite 3) out of a bank that obeys the rules, with at most one account.
/// Throws Failure, and leaves nothing behind, if the file exists already or cannot be written.
void createDatabase(const std::filesystem::path& file, const Bank& bank,
                    const std::optional<Account>& account, Progress& progress);

/// The bytes of the file that holds what `database` holds at this moment.
[[nodiscard]] QByteArray contentOf(SQLite::Database& database);

} // namespace bank
