#pragma once

#include "bank/failure.h"

#include <filesystem>
#include <vector>

namespace bank {

struct Line
{
    Place place;
    QString text; ///< without blanks at either end; empty for a blank line
};

/// The lines of a UTF-8 text file without its comments, which are the lines that begin with '#'.
/// Complains about bytes that are not UTF-8 and about control characters; throws Failure if the file
/// cannot be read.
[[nodiscard]] std::vector<Line> readLines(const std::filesystem::path& file, Complaints& complaints);

} // namespace bank
