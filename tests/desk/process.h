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

} // namespace desk
