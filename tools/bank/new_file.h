#pragma once

#include <filesystem>

namespace bank {

enum class Readers {
    Owner,   ///< a bank holds passwords
    Everyone ///< whom the umask lets
};

/// A file that appears under its name whole or not at all, and never in place of another. It is written under
/// a temporary name in the same folder, which vanishes with this object, also when a signal ends the program.
/// One at a time is made.
class NewFile
{
public:
    /// Makes the empty temporary file. Throws Failure if `target` exists already or its folder cannot be
    /// written.
    explicit NewFile(std::filesystem::path target, Readers readers = Readers::Owner);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    NewFile(NewFile&&) = delete;
    NewFile& operator=(NewFile&&) = delete;

    [[nodiscard]] const std::filesystem::path& temporary() const { return temporary_; }

    /// Gives the written file its name. Throws Failure if another file has taken the name by now.
    void publish();

private:
    std::filesystem::path target_;
    std::filesystem::path temporary_;
};

/// Gives a file another name, on every file system. Returns 0, or the error number: EEXIST if a file has the
/// name already, which is left as it is.
[[nodiscard]] int renameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace bank
