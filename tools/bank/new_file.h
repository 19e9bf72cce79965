#pragma once

#include <filesystem>

namespace bank {

/// A file that appears under its name whole or not at all, and never in place of another. It is
/// written under a temporary name in the same folder, which vanishes with this object.
class NewFile
{
public:
    /// Makes the empty temporary file, readable and writable by its owner alone. Throws Failure if
    /// `target` exists already or its folder cannot be written.
    explicit NewFile(std::filesystem::path target);
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

} // namespace bank
