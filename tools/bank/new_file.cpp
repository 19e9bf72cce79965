#include "bank/new_file.h"

#include "bank/failure.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
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

// A signal handler may touch nothing but such plain memory.
std::array<std::array<char, 4096>, 2> unfinished; ///< the temporary file and its journal, or ""

extern "C" void removeUnfinished(int signal)
{
    for (const auto& name : unfinished)
        (void)::unlink(name.data());
    (void)::raise(signal); // by its default now
}

/// Puts off the signals that end the program while it lives.
class SignalsPutOff
{
public:
    SignalsPutOff()
    {
        sigset_t set;
        sigemptyset(&set);
        for (const int signal : endings)
            sigaddset(&set, signal);
        ::sigprocmask(SIG_BLOCK, &set, &former_);
    }
    ~SignalsPutOff() { ::sigprocmask(SIG_SETMASK, &former_, nullptr); }
    SignalsPutOff(const SignalsPutOff&) = delete;
    SignalsPutOff& operator=(const SignalsPutOff&) = delete;
    SignalsPutOff(SignalsPutOff&&) = delete;
    SignalsPutOff& operator=(SignalsPutOff&&) = delete;

    static constexpr std::array endings = {SIGINT, SIGTERM, SIGHUP};

private:
    sigset_t former_{};
};

/// `name` is removed if a signal ends the program, unless that signal is ignored.
void noteUnfinished(const std::string& name)
{
    for (std::size_t i = 0; i < unfinished.size(); ++i) {
        const std::string whole = name.empty() ? name : name + (i == 0 ? "" : "-journal");
        if (whole.size() < unfinished.at(i).size())
            std::memcpy(unfinished.at(i).data(), whole.c_str(), whole.size() + 1);
    }
    struct sigaction action = {};
    action.sa_handler = removeUnfinished;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : SignalsPutOff::endings) {
        struct sigaction former = {};
        if (::sigaction(signal, nullptr, &former) == 0 && former.sa_handler == SIG_DFL)
            (void)::sigaction(signal, &action, nullptr);
    }
}

} // namespace

NewFile::NewFile(std::filesystem::path target, Readers readers) : target_(std::move(target))
{
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(target_, ignored)))
        fail(target_, EEXIST);
    std::string name = (target_.parent_path() / ("." + target_.filename().string() + ".XXXXXX")).string();
    const SignalsPutOff whileItIsMade;
    const int descriptor = ::mkstemp(name.data());
    if (descriptor < 0)
        fail(target_, errno);
    if (readers == Readers::Everyone) {
        const mode_t mask = ::umask(0);
        (void)::umask(mask);
        constexpr mode_t all = 0666;
        (void)::fchmod(descriptor, all & ~mask);
    }
    ::close(descriptor);
    temporary_ = name;
    noteUnfinished(name);
}

NewFile::~NewFile()
{
    const SignalsPutOff whileItIsRemoved;
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
    std::filesystem::remove(temporary_.string() + "-journal", ignored);
    noteUnfinished({});
}

void NewFile::publish()
{
    const int written = ::open(temporary_.c_str(), O_RDONLY | O_CLOEXEC);
    if (written < 0 || ::fsync(written) != 0)
        fail(target_, errno);
    ::close(written);
    if (const int error = renameWithoutReplacing(temporary_, target_); error != 0)
        fail(target_, error);
}

int renameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // Where the file system cannot, an empty file takes the name first: nobody else can then.
    const int placeholder = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (placeholder < 0)
        return errno;
    ::close(placeholder);
    if (::rename(from.c_str(), to.c_str()) == 0)
        return 0;
    const int error = errno;
    (void)::unlink(to.c_str());
    return error;
}

} // namespace bank
