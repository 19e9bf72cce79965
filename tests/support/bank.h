#pragma once

#include <QString>
#include <QTemporaryDir>

#include <string>

namespace support {

/// A question bank in a directory of its own, which is the current one as long as this object lives. Every
/// level holds five questions; question n of a level asks "Question <level>.<n>", offers "<level>.<n> one" to
/// "<level>.<n> four", and its right answer is the third. One prompt message.
class Bank
{
public:
    Bank();
    ~Bank();
    Bank(const Bank&) = delete;
    Bank& operator=(const Bank&) = delete;

    [[nodiscard]] QString path() const { return directory_.filePath("orv.orv"); }
    void execute(const std::string& sql) const;
    /// The first column of the first row, as text.
    [[nodiscard]] std::string value(const std::string& sql) const;

private:
    QTemporaryDir directory_;
    QString former_;
};

} // namespace support
