#pragma once

#include "bank/formats.h"

namespace bank {

/// Reads one prompt a line.
void readPrompts(const TextFile& file, Intake& intake);

/// Reads the bank from the text files of a folder: the questions from every questions-*.txt, in the order
/// of the file names, and the prompts from prompts.txt. Throws Failure if anything cannot be read.
void readFolder(const std::filesystem::path& folder, Intake& intake);

/// Reads a folder, or a file (standard input for "-") of the format that its name tells unless one is given.
/// Complains if there is no question.
void readSource(const std::filesystem::path& source, const Format* format, Intake& intake);

} // namespace bank
