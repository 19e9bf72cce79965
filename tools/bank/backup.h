#pragma once

#include "bank/progress.h"

#include <filesystem>

namespace bank {

/// Copies a quiz database, also while other programs use it, to a new file that holds the state of one
/// moment. Throws Failure or db::Failure, and leaves no file behind, if `target` exists already, if anything
/// cannot be read or written, or if the copy is damaged.
void backUp(const std::filesystem::path& original, const std::filesystem::path& target, Progress& progress);

/// Makes a new file like backUp(), without accounts and with all tallies at 1, to give away.
void copyForOthers(const std::filesystem::path& file, const std::filesystem::path& target,
                   Progress& progress);

/// Puts the content of `backup`, a sound quiz database, into `file`, which other programs may use meanwhile.
/// What `file` had is kept in a new file beside it, whose path is returned; it is empty if there was no file.
/// Throws like backUp(); `file` then holds what it had.
std::filesystem::path restore(const std::filesystem::path& file, const std::filesystem::path& backup,
                              Progress& progress);

} // namespace bank
