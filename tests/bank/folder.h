#pragma once

#include "bank/command.h"

#include <QByteArrayList>
#include <QDir>
#include <QTemporaryDir>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// A question that obeys every rule, unless `text` takes the place of one of its nine lines.
inline std::string record(const std::string& level, const std::string& question, qsizetype line = 2,
                          const std::string& text = "topic: words")
{
    const char* const usual = "level: \ntopic: words\nquestion: \nA: one\nB: the two\nC: three\nD: four\n"
                              "right: B\nwhy: because";
    QByteArrayList lines = QByteArray(usual).split('\n');
    lines[0] += level.c_str();
    lines[2] += question.c_str();
    lines[line - 1] = text.c_str();
    return lines.join('\n').toStdString() + "\n\n";
}

/// A temporary folder with the source of a bank, just large enough, in its subfolder "data".
class Folder
{
public:
    Folder()
    {
        std::string questions;
        for (const std::string question : {"1", "2", "3", "4", "5"}) {
            questions += record("1", question + " one?") + record("2", question + " two?") +
                         record("3", question + " three?");
        }
        QDir(directory_.path()).mkdir("data");
        write("data/questions-1.txt", questions);
        write("data/prompts.txt", "Shall I?\n");
    }

    /// Writes `content`, byte for byte, to the file `name` of this folder.
    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path(name), std::ios::binary) << content;
    }

    /// Names of all that is in this folder.
    [[nodiscard]] QStringList names() const
    {
        return QDir(directory_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// Runs orvbank, of whose arguments those with a point or "data" are files of this folder. Returns its
    /// exit code and all that it printed, without the path of this folder.
    [[nodiscard]] std::pair<int, std::string> run(const std::vector<std::string>& arguments) const
    {
        std::vector<std::string> words{"orvbank"};
        for (const std::string& word : arguments)
            words.push_back(word.find('.') != std::string::npos || word == "data" ? path(word) : word);
        std::vector<const char*> argv;
        for (const std::string& word : words)
            argv.push_back(word.c_str());
        std::ostringstream printed;
        const int code = bank::run(static_cast<int>(argv.size()), argv.data(), printed, printed);
        return {code, QString::fromStdString(printed.str()).remove(directory_.path() + '/').toStdString()};
    }

    [[nodiscard]] std::string content(const std::string& name) const
    {
        std::ostringstream content;
        content << std::ifstream(path(name), std::ios::binary).rdbuf();
        return content.str();
    }

    [[nodiscard]] std::string path(const std::string& name) const
    {
        return directory_.filePath(name.c_str()).toStdString();
    }

private:
    QTemporaryDir directory_;
};
