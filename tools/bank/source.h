#pragma once

#include "bank/intake.h"

#include <filesystem>
#include <optional>

namespace bank {

enum class Format { Csv, Gift, Aiken, Text };

/// The format that the ending of a file's name tells; throws Failure if it tells none.
[[nodiscard]] Format formatOf(const std::filesystem::path& file);

/// Reads the bank from the text files of a folder: the questions from every questions-*.txt, in the order
/// of the file names, and the prompts from prompts.txt. Throws Failure if anything cannot be read.
void readFolder(const std::filesystem::path& folder, Intake& intake);

/// Reads a folder or a file, of the format that its name tells unless another is given.
void readSource(const std::filesystem::path& source, std::optional<Format> format, Intake& intake);

} // namespace bank
