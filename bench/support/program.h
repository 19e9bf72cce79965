#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace bench {

using Time = std::chrono::steady_clock::time_point;

/// A program in a process group of its own, killed with all of its group at the end of this object.
class Program
{
public:
    /// Runs `command`, found through PATH, in `directory` with nothing to read. Its output goes to the
    /// descriptor `output`, or nowhere if there is none. Throws std::system_error if there can be no process.
    explicit Program(std::vector<std::string> command, const std::filesystem::path& directory = ".",
                     int output = -1);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] Time started() const { return started_; }
    /// What it holds in memory now, in MiB, shared libraries included; 0 if it has ended.
    [[nodiscard]] double resident() const;

private:
    pid_t process_;
    Time started_;
};

/// A new directory for the eyes of this user only, removed at the end of this object.
class PrivateDirectory
{
public:
    PrivateDirectory();
    ~PrivateDirectory();
    PrivateDirectory(const PrivateDirectory&) = delete;
    PrivateDirectory& operator=(const PrivateDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace bench
