#pragma once

#include "bank/failure.h"
#include "bank/progress.h"

namespace bank {

/// Complains about questions that ask nearly the same as an earlier one of the bank: the same words but for
/// accents, punctuation and little words; or the same right answer and, in whatever order the options stand,
/// a text that differs in one word that is missing or misspelt, or shares most of its words. Numbers must
/// agree. Texts that are equal are left to checkRepeats(). Takes time n log n.
void checkNearRepeats(const Bank& bank, Complaints& complaints, Progress& progress);

} // namespace bank
