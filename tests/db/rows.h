#pragma once

#include "db/round.h"
#include "support/bank.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

namespace db_test {

using namespace db::statements;
using namespace std::chrono_literals;
using Cause = db::Failure::Cause;
using support::Bank;

db::Connection connect(const Bank& bank, std::chrono::milliseconds patience = 40ms);

/// The rows of `query`, for changes, through a connection of their own.
db::Recordset open(const Bank& bank, const db::Query& query);

/// Where the recordset stands: "bof", "eof", "none" for both, else `field`, or a "!" and its Failure.
std::string place(const db::Recordset& rows, const char* field = "question_id");

/// Does the moves one after the other and tells the place after each, behind a "!" and the Failure if the
/// move failed. Moves are "first", "last", numbers of rows, "new", "set" (the first answer), "number" (sets
/// that of the question), "update" and "delete".
std::string trace(db::Recordset& rows, const std::string& moves, const char* field = "question_id");

/// The rows that a round passes, by their question_id, taken so many at a time.
std::string round(const db::Recordset& rows, qint64 most);

/// The Failure that `work` throws.
db::Failure failureOf(const std::function<void()>& work);

} // namespace db_test
