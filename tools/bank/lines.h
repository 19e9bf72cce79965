#pragma once

#include "bank/failure.h"

#include <filesystem>
#include <vector>

namespace bank {

struct Line
{
    Place place;  ///< of the first character of `text`
    QString text; ///< without blanks at either end; empty for a blank line
};

/// The name of a file for a message.
[[nodiscard]] QString nameOf(const std::filesystem::path& file);

/// The content of a UTF-8 text file without its byte order mark. Complains about lines that are not UTF-8;
/// throws Failure if the file cannot be read.
[[nodiscard]] QString readText(const std::filesystem::path& file, Complaints& complaints);

/// The lines of such a file, whether they end in LF or in CR LF.
[[nodiscard]] std::vector<Line> readLines(const std::filesystem::path& file, Complaints& complaints);

} // namespace bank
