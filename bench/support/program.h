#pragma once

#include <QTemporaryDir>

#include <filesystem>

namespace bench {

/// A new directory for the eyes of this user only, removed at the end of this object.
class PrivateDirectory
{
public:
    [[nodiscard]] std::filesystem::path path() const { return directory_.path().toStdString(); }

private:
    QTemporaryDir directory_;
};

} // namespace bench
