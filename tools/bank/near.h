#pragma once

#include "bank/progress.h"
#include "bank/rules.h"

namespace bank {

/// Two questions of a bank by their index.
struct Twins
{
    std::size_t earlier = 0;
    std::size_t later = 0;
};

/// Questions that ask nearly the same as an earlier one, at most one pair for each, in their order. Texts
/// that are equal are left to removeRepeats(). Takes time n log n.
///
/// The measure is the share of common letter trigrams among all of both texts, without the little words of
/// English questions, letter case and accents. It is taken only where the right answers and the numbers
/// agree. Questions that ask different things stay below 0.2; a word more, less, misspelt or elsewhere leaves
/// 0.7 or more.
[[nodiscard]] std::vector<Twins> nearRepeats(const std::vector<Question>& questions, Progress& progress);

/// Complains about repeats, which are taken out of the bank, and letters that are right too often; warns of
/// questions with the same options. `source` is named where the whole is at fault.
void checkMix(Bank& bank, const Place& source, Complaints& complaints, Progress& progress);

} // namespace bank
