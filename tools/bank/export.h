#pragma once

#include "bank/failure.h"
#include "bank/formats.h"

namespace bank {

struct Exported
{
    std::size_t questions = 0;
    QStringList warnings; ///< about what was left out
};

/// Writes questions to a new file. Throws Failure if it exists already or cannot be written, or if the
/// format does not hold questions that break the rules, or more than one level.
Exported exportQuestions(std::vector<Question> questions, const std::filesystem::path& target,
                         const Format& format);

} // namespace bank
