#pragma once

#include <QString>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace launcher {

/// Whole sentences for a message box: what cannot be done, why, and what to do next.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// Where a player's start finds things, by the XDG Base Directory Specification.
struct Places
{
    std::filesystem::path own;                 ///< the player's folder, in which the game runs
    std::vector<std::filesystem::path> shared; ///< where an administrator may have put a bank for all players
    std::filesystem::path package;             ///< holds "genie.acs" and, in "data", what a bank is made of
};

/// Reads XDG_DATA_HOME, XDG_DATA_DIRS and HOME. Throws Failure if they name no folder for the player.
[[nodiscard]] Places placesFor(const std::filesystem::path& package);

/// Makes the player's folder unless it is there. Throws Failure.
void makeFolder(const Places& places);

/// Puts a bank and the host's character into the folder where they are missing: a link to the first shared
/// bank, or else a new bank, whose owner's password is returned. What is there stays as it is, but for a link
/// to a shared bank that is gone. Throws Failure, and leaves no half of a bank behind.
[[nodiscard]] std::optional<std::string> furnish(const Places& places);

} // namespace launcher
