#pragma once

#include <QByteArray>

#include <filesystem>

namespace bank {

enum class Readers {
    Owner,   ///< a bank holds passwords
    Everyone ///< whom the umask lets
};

/// Makes a file that appears under its name whole or not at all, and never in place of another. Throws
/// Failure, and leaves nothing behind, if there is such a file already or if it cannot be written.
void writeNew(const std::filesystem::path& target, const QByteArray& content, Readers readers);

} // namespace bank
