#pragma once

#include "bank/store.h"

namespace bank {

/// Makes the quiz database `file` (SQLite 3) out of a bank that obeys the rules, with one account.
/// Throws Failure, and leaves nothing behind, if the file exists already or cannot be written.
void createDatabase(const std::filesystem::path& file, const Bank& bank, const Account& account);

} // namespace bank
