#include "launcher/folder.h"

#include "bank/accounts.h"
#include "bank/create.h"
#include "bank/intake.h"
#include "bank/source.h"

#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <system_error>

namespace launcher {
namespace {

namespace fs = std::filesystem;

QString shown(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

/// The folder that a variable names; those that are not absolute do not count.
fs::path folderIn(const char* variable)
{
    const char* const value = std::getenv(variable);
    const fs::path folder(value == nullptr ? "" : value);
    return folder.is_absolute() ? folder : fs::path();
}

/// Whether anything has this name, be it a link that leads nowhere.
bool isTaken(const fs::path& path)
{
    std::error_code ignored;
    return fs::symlink_status(path, ignored).type() != fs::file_type::not_found;
}

bool isThere(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(path, ignored);
}

void dropLinkToGoneBank(const fs::path& link, const Places& places)
{
    std::error_code error;
    const fs::path target = fs::read_symlink(link, error);
    if (!error && !isThere(target) && std::ranges::count(places.shared, target) > 0)
        fs::remove(link, error);
}

std::string makeBank(const fs::path& file, const fs::path& source)
{
    try {
        bank::Progress silent;
        bank::Intake intake(bank::Texts::Reviewed, {}, silent);
        bank::readFolder(source, intake);
        intake.complaints.throwIfAny();
        const bank::Account owner{"owner", bank::newPassword()};
        bank::createDatabase(file, intake.bank, owner, silent);
        return owner.password;
    } catch (const std::exception& error) {
        throw Failure(
            QString("Your question bank could not be made: %1.\n\nMake sure that the disk has room and "
                    "that you may write to this folder, then start again.")
                .arg(error.what()));
    }
}

} // namespace

Places placesFor(const fs::path& package)
{
    fs::path data = folderIn("XDG_DATA_HOME");
    if (data.empty() && !folderIn("HOME").empty())
        data = folderIn("HOME") / ".local/share";
    if (data.empty()) {
        throw Failure(
            "Orvanta does not know where to keep your question bank, because this account has no home "
            "folder. Let the variable HOME or XDG_DATA_HOME name a folder of yours, then start again.");
    }
    Places places{data / "orvanta", {}, package};
    const char* const listed = std::getenv("XDG_DATA_DIRS");
    const std::string_view usual = "/usr/local/share:/usr/share";
    std::istringstream folders{std::string(listed == nullptr || *listed == '\0' ? usual : listed)};
    for (std::string folder; std::getline(folders, folder, ':');)
        if (fs::path(folder).is_absolute())
            places.shared.push_back(fs::path(folder) / "orvanta/orv.orv");
    return places;
}

void makeFolder(const Places& places)
{
    std::error_code error;
    fs::create_directories(places.own, error);
    if (error) {
        throw Failure(
            QString("Your folder for Orvanta, %1, cannot be made: %2.\n\nMake sure that the disk has "
                    "room, that you may write there and that no file has this name, then start again.")
                .arg(shown(places.own), QString::fromStdString(error.message())));
    }
}

std::optional<std::string> furnish(const Places& places)
{
    std::error_code ignored;
    // A link, so that an upgrade brings the newer character; the game does without him where this fails.
    if (!isThere(places.own / "genie.acs")) {
        fs::remove(places.own / "genie.acs", ignored);
        fs::create_symlink(places.package / "genie.acs", places.own / "genie.acs", ignored);
    }
    const fs::path bank = places.own / "orv.orv";
    dropLinkToGoneBank(bank, places);
    if (isTaken(bank))
        return std::nullopt;
    const auto shared = std::ranges::find_if(places.shared, isThere);
    if (shared == places.shared.end())
        return makeBank(bank, places.package / "data");
    std::error_code error;
    fs::create_symlink(*shared, bank, error);
    if (error) {
        throw Failure(
            QString("The question bank %1 cannot be linked to from your folder %2: %3.\n\nMake sure "
                    "that you may write there, then start again.")
                .arg(shown(*shared), shown(places.own), QString::fromStdString(error.message())));
    }
    return std::nullopt;
}

} // namespace launcher
