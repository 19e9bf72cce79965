#pragma once

#include "bank/failure.h"
#include "bank/store.h"

namespace bank {

/// Complains about everything in the database that makes a question unfair or a game impossible; warns of
/// what an owner should know.
[[nodiscard]] Complaints checkStore(Store& store, Progress& progress);

/// Complains about repeats and letters that are right too often; `source` is named where the whole is at
/// fault.
void checkMix(const Bank& bank, const Place& source, Complaints& complaints, Progress& progress);

} // namespace bank
