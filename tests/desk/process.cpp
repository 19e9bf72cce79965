#include "process.h"

#include <csignal>
#include <stdexcept>

#include <sys/prctl.h>
#include <unistd.h>

namespace desk {

Process::Process(const Command& command)
{
    process_.setProcessEnvironment(command.environment);
    process_.setWorkingDirectory(command.directory);
    process_.setStandardInputFile(QProcess::nullDevice());
    if (!command.log.isEmpty()) {
        process_.setProcessChannelMode(QProcess::MergedChannels);
        process_.setStandardOutputFile(command.log);
    }
    process_.setChildProcessModifier([] {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    process_.start(command.program, command.arguments);
    if (!process_.waitForStarted())
        throw std::runtime_error(command.program.toStdString() + ": " + process_.errorString().toStdString());
    group_ = process_.processId();
}

Process::~Process()
{
    kill(static_cast<pid_t>(-group_), SIGKILL);
    process_.waitForFinished();
}

bool Process::ended(std::chrono::milliseconds patience)
{
    return process_.state() == QProcess::NotRunning ||
           process_.waitForFinished(static_cast<int>(patience.count()));
}

int Process::exitCode() const
{
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

QByteArray Process::firstLine(std::chrono::milliseconds patience)
{
    while (!process_.canReadLine() && process_.waitForReadyRead(static_cast<int>(patience.count()))) {
    }
    return process_.readLine();
}

} // namespace desk
