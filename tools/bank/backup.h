#pragma once

#include "bank/progress.h"

#include <filesystem>

namespace bank {

/// Copies a quiz database, also while other programs use it, to a new file that holds the state of one
/// moment. Throws Failure or db::Failure, and leaves no file behind, if `target` exists already, if anything
/// cannot be read or written, or if the copy is damaged.
void backUp(const std::filesystem::path& file, const std::filesystem::path& target, Progress& progress);

} // namespace bank
