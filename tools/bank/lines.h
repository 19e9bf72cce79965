#pragma once

#include "bank/failure.h"

#include <QByteArray>

#include <filesystem>
#include <vector>

namespace bank {

/// A file that was read whole, without its byte order mark.
struct TextFile
{
    QString name;
    QString content;
};

struct Line
{
    Place place;  ///< of the first character of `text`
    QString text; ///< without blanks at either end; empty for a blank line
};

/// The name of a file for a message.
[[nodiscard]] QString nameOf(const std::filesystem::path& file);

/// Whether the path stands for standard input or output.
[[nodiscard]] bool isStandard(const std::filesystem::path& file);

/// `bytes` as UTF-8, where U+FFFD stands for what is none, or as UTF-16 if they begin with its mark;
/// complains if they are none.
[[nodiscard]] TextFile textFile(const QString& name, const QByteArray& bytes, Complaints& complaints);

/// The same of a file, or of standard input for "-"; throws Failure if it cannot be read.
[[nodiscard]] TextFile readText(const std::filesystem::path& file, Complaints& complaints);

/// The lines of a file, whether they end in LF or in CR LF.
[[nodiscard]] std::vector<Line> linesOf(const TextFile& file);

} // namespace bank
