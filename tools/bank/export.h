#pragma once

#include "bank/failure.h"
#include "bank/source.h"

#include <filesystem>

namespace bank {

struct Exported
{
    std::size_t questions = 0;
    QStringList warnings; ///< about what was left out
};

/// Writes questions to a new file. Throws Failure if it exists already or cannot be written, if a format
/// other than CSV would have to hold a question that breaks the rules, or Aiken more than one level.
Exported exportQuestions(std::vector<Question> questions, const std::filesystem::path& target, Format format);

} // namespace bank
