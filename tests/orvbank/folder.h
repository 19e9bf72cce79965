#pragma once

#include <QTemporaryDir>

#include <filesystem>
#include <string>
#include <vector>

/// A temporary folder with the source of a bank, just large enough, in its subfolder "data".
class Folder
{
public:
    Folder();

    /// Writes `content`, byte for byte, to the file `name` of this folder.
    void write(const std::string& name, const std::string& content) const;
    [[nodiscard]] std::string read(const std::string& name) const;

    /// Names of what is in this folder, "data" left out, in order.
    [[nodiscard]] std::vector<std::string> names() const;

    [[nodiscard]] std::string path(const std::string& name) const { return (root_ / name).string(); }

private:
    QTemporaryDir directory_;
    std::filesystem::path root_;
};

/// A question that obeys every rule, unless `text` takes the place of one of its nine lines.
std::string record(const std::string& level, const std::string& question, std::size_t line = 0,
                   const std::string& text = "");
