#pragma once

#include "bank/question.h"

#include <filesystem>

namespace bank {

/// Makes a new PDF file (A4) of a quiz to print: so many questions of each level, drawn at random, in the
/// order of the levels, and the answers on a page of their own. Returns how many questions it has. Throws
/// Failure if the file exists already or cannot be written, or if there are no questions with a right answer.
std::size_t printSheet(std::vector<Question> questions, std::size_t perLevel,
                       const std::filesystem::path& target);

} // namespace bank
