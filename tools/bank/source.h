#pragma once

#include "bank/formats.h"

namespace bank {

/// Reads the bank from the text files of a folder: the questions from every questions-*.txt, in the order
/// of the file names, and the prompts from prompts.txt. Throws Failure if anything cannot be read.
void readFolder(const std::filesystem::path& folder, Intake& intake);

/// Reads a folder or a file, of the format that its name tells unless one is given.
void readSource(const std::filesystem::path& source, const Format* format, Intake& intake);

} // namespace bank
