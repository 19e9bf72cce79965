#include "display/process.h"

#include <QSize>

#include <csignal>
#include <stdexcept>

#include <sys/prctl.h>
#include <unistd.h>

namespace desk {

Process::Process(const QString& program, const QStringList& arguments, const QProcessEnvironment& environment,
                 const QString& directory)
{
    setProcessEnvironment(environment);
    setWorkingDirectory(directory);
    setStandardInputFile(nullDevice());
    setChildProcessModifier([] {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    start(program, arguments);
    if (!waitForStarted())
        throw std::runtime_error(program.toStdString() + ": " + errorString().toStdString());
    group_ = processId();
}

Process::~Process()
{
    // An X server that is not asked to end leaves its lock behind.
    constexpr int patienceMs = 2000;
    for (const int signal : {SIGTERM, SIGKILL}) {
        ::kill(static_cast<pid_t>(-group_), signal);
        waitForFinished(patienceMs);
    }
}

QByteArray Process::printed()
{
    waitForReadyRead(10); // without an event loop nothing else reads the pipes
    return readAllStandardOutput() + readAllStandardError();
}

Server::Server(QSize screen, const QProcessEnvironment& environment)
    : Process("Xvfb",
              {"-displayfd", "1", "-screen", "0",
               QString("%1x%2x24").arg(screen.width()).arg(screen.height()), "-nolisten", "tcp", "-noreset"},
              environment)
{
    while (!canReadLine() && waitForReadyRead()) {
    }
    name_ = ":" + readLine().trimmed();
}

} // namespace desk
