#pragma once

#include "bank/failure.h"

#include <vector>

namespace bank {

/// What is wrong with a question, and with which of its fields (named as in the source files).
struct Breach
{
    QString field;
    QString reason;
};

/// What is wrong with one question taken by itself: texts left out or too long (in code points), a
/// level or letter that does not exist, options that differ in nothing but case and blanks.
[[nodiscard]] std::vector<Breach> breaches(const Question& question);

/// Complains about prompts that are too long.
void checkPrompt(const Prompt& prompt, Complaints& complaints);

/// Complains about questions and prompts that stand in the bank twice.
void checkRepeats(const Bank& bank, Complaints& complaints);

/// Complains, naming `source`, about a bank with which no game could be played to its end.
void checkEnough(const Bank& bank, const std::string& source, Complaints& complaints);

} // namespace bank
