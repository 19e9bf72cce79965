#include "bank/new_file.h"

#include "bank/failure.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <unistd.h>

namespace bank {
namespace {

[[noreturn]] void fail(const std::filesystem::path& file, int error)
{
    const QString name = QString::fromStdString(file.string());
    if (error == EEXIST)
        throw Failure(QString("%1 exists already and is left as it is").arg(name));
    const std::string reason = std::generic_category().message(error);
    throw Failure(QString("%1 cannot be created: %2").arg(name, QString::fromStdString(reason)));
}

} // namespace

NewFile::NewFile(std::filesystem::path target) : target_(std::move(target))
{
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(target_, ignored)))
        fail(target_, EEXIST);
    std::string name = (target_.parent_path() / ("." + target_.filename().string() + ".XXXXXX")).string();
    const int descriptor = ::mkstemp(name.data());
    if (descriptor < 0)
        fail(target_, errno);
    ::close(descriptor);
    temporary_ = name;
}

NewFile::~NewFile()
{
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
    std::filesystem::remove(temporary_.string() + "-journal", ignored);
}

void NewFile::publish()
{
    // Unlike a rename, a link never replaces a file that has the name already.
    if (::link(temporary_.c_str(), target_.c_str()) != 0)
        fail(target_, errno);
}

} // namespace bank
