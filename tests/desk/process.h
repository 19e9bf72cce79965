#pragma once

#include <QProcess>
#include <QStringList>

#include <chrono>
#include <memory>

namespace desk {

/// What a program is started with.
struct Command
{
    QString program;
    QStringList arguments = {};
    QProcessEnvironment environment = {};
    QString directory = {};
    QString log = {}; ///< file for both output streams; without one they are read from the process
};

/// A program in a process group of its own that never outlives this object, or this process.
class Process
{
public:
    /// Throws std::runtime_error if the program cannot be started.
    explicit Process(const Command& command);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Waits for the end; false if it has not come by then.
    bool ended(std::chrono::milliseconds patience = {});
    /// The exit code of an ended program, -1 if a signal ended it.
    [[nodiscard]] int exitCode() const;
    [[nodiscard]] QByteArray firstLine(std::chrono::milliseconds patience);
    [[nodiscard]] QByteArray standardOutput() { return process_.readAllStandardOutput(); }
    [[nodiscard]] QByteArray standardError() { return process_.readAllStandardError(); }

private:
    QProcess process_;
    qint64 group_ = 0;
};

} // namespace desk
