#pragma once

#include "bank/question.h"

#include <filesystem>

namespace bank {

/// Reads the bank from the text files of `folder`: the questions from every questions-*.txt, in the
/// order of the file names, and the prompts from prompts.txt. What comes back obeys all rules; throws
/// Failure with every complaint, one "file:line: reason" a line, if anything does not.
[[nodiscard]] Bank readSource(const std::filesystem::path& folder);

} // namespace bank
