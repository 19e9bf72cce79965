#pragma once

#include <QProcess>

namespace desk {

/// A program in a process group of its own that never outlives this object, or this process.
class Process : public QProcess
{
public:
    /// Throws std::runtime_error if the program cannot be started.
    Process(const QString& program, const QStringList& arguments, const QProcessEnvironment& environment,
            const QString& directory = {});
    ~Process() override;

    /// What it has printed since the last call, both streams.
    [[nodiscard]] QByteArray printed();

private:
    qint64 group_ = 0;
};

/// An X server with one screen of so many pixels.
class Server : public Process
{
public:
    Server(QSize screen, const QProcessEnvironment& environment);

    /// As DISPLAY names it.
    [[nodiscard]] QByteArray name() const { return name_; }

private:
    QByteArray name_;
};

} // namespace desk
