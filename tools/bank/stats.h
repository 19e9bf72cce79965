#pragma once

#include "bank/question.h"

#include <iosfwd>

namespace bank {

/// Prints how many questions each level holds, also by topic where `topics` has a question of the same text,
/// how often they were played and answered right, and the same for every question that was played.
void printStats(const std::vector<Question>& questions, const std::vector<Question>& topics,
                std::ostream& out);

} // namespace bank
