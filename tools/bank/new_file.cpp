#include "bank/new_file.h"

#include "bank/failure.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryFile>

#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace bank {
namespace {

void letEveryoneRead(int descriptor)
{
    constexpr mode_t all = 0666;
    const mode_t mask = ::umask(0);
    (void)::umask(mask);
    (void)::fchmod(descriptor, all & ~mask);
}

} // namespace

void writeNew(const std::filesystem::path& target, const QByteArray& content, Readers readers)
{
    // Until it is whole the file has no name, or a hidden one where the file system asks for one. So that not
    // even that stays behind, a signal that ends the program waits.
    sigset_t all;
    sigset_t former;
    sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &former);
    const auto unblocked = qScopeGuard([&] { ::pthread_sigmask(SIG_SETMASK, &former, nullptr); });
    const QString name = QString::fromStdString(target.string());
    QTemporaryFile file(QString::fromStdString(target.parent_path() / ("." + target.filename().string())) +
                        ".XXXXXX");
    const auto failed = [&](const QString& reason) {
        return Failure(QString("%1 cannot be written: %2").arg(name, reason));
    };
    if (!file.open())
        throw failed(file.errorString());
    if (readers == Readers::Everyone)
        letEveryoneRead(file.handle());
    // Where there is room for a part only, the next attempt says why.
    for (qsizetype at = 0; at < content.size();) {
        const auto written =
            ::write(file.handle(), content.data() + at, static_cast<std::size_t>(content.size() - at));
        if (written <= 0)
            throw failed(qt_error_string());
        at += written;
    }
    if (::fsync(file.handle()) != 0)
        throw failed(qt_error_string());
    if (!file.rename(name)) {
        const QFileInfo there(name);
        if (there.exists() || there.isSymLink())
            throw Failure(QString("%1 exists already and is left as it is").arg(name));
        throw failed(file.errorString());
    }
    file.setAutoRemove(false);
}

} // namespace bank
