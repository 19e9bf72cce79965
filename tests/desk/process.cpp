#include "process.h"

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
    ::kill(static_cast<pid_t>(-group_), SIGKILL);
    waitForFinished();
}

QByteArray Process::printed()
{
    waitForReadyRead(10); // without an event loop nothing else reads the pipes
    return readAllStandardOutput() + readAllStandardError();
}

} // namespace desk
