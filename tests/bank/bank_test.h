#pragma once

#include "bank/command.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// A question that obeys every rule, unless `text` takes the place of one of its nine lines.
inline std::string record(const QString& level, const QString& question, qsizetype line = 2,
                          const QString& text = "topic: words")
{
    QStringList lines = {"level: " + level, "topic: words", "question: " + question,
                         "A: one",          "B: the two",   "C: three",
                         "D: four",         "right: B",     "why: because"};
    lines[line - 1] = text;
    return lines.join('\n').toStdString() + "\n\n";
}

/// A temporary folder with the source of a bank, just large enough, in its subfolder "data", and that bank,
/// bank.orv.
class BankTest : public testing::Test
{
protected:
    BankTest()
    {
        std::string questions;
        for (const QString question : {"1", "2", "3", "4", "5"})
            questions += record("1", question + " one?") + record("2", question + " two?") +
                         record("3", question + " three?");
        QDir(directory_.path()).mkdir("data");
        write("data/questions-1.txt", questions);
        write("data/prompts.txt", "Shall I?\n");
        expect("create bank.orv --from data", 0, "created with 15 questions and 1 prompt.\n");
    }

    [[nodiscard]] std::string path(const std::string& name) const
    {
        return directory_.filePath(name.c_str()).toStdString();
    }

    /// Writes `content`, byte for byte, to the file `name` of this folder.
    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path(name), std::ios::binary) << content;
    }

    [[nodiscard]] std::string content(const std::string& name) const { return contentOf(path(name)); }

    [[nodiscard]] static std::string contentOf(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Names of all that is in this folder.
    [[nodiscard]] QStringList names() const
    {
        return QDir(directory_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void exec(const std::string& sql) const
    {
        SQLite::Database(path("bank.orv"), SQLite::OPEN_READWRITE).exec(sql);
    }

    [[nodiscard]] std::string value(const std::string& sql, const std::string& file = "bank.orv") const
    {
        return SQLite::Database(path(file)).execAndGet(sql).getString();
    }

    /// Runs orvbank with arguments of which those with a point or "data" are files of this folder. Returns
    /// its exit code and all that it printed, without the path of this folder.
    [[nodiscard]] std::pair<int, std::string> run(const std::string& line, std::ostream* out = nullptr) const
    {
        std::vector<std::string> words{"orvbank"};
        for (const QString& word : QProcess::splitCommand(QString::fromStdString(line)))
            words.push_back(!word.contains('=') && (word.contains('.') || word == "data")
                                ? path(word.toStdString())
                                : word.toStdString());
        std::vector<const char*> argv;
        for (const std::string& word : words)
            argv.push_back(word.c_str());
        std::ostringstream told;
        const int code = bank::run(static_cast<int>(argv.size()), argv.data(), out ? *out : told, told);
        return {code, QString::fromStdString(told.str()).remove(directory_.path() + '/').toStdString()};
    }

    /// Runs it and expects an exit code and a part of what it prints.
    void expect(const std::string& line, int code, const std::string& part) const
    {
        const auto [exit, told] = run(line);
        EXPECT_EQ(exit, code) << line << '\n' << told;
        EXPECT_NE(told.find(part), std::string::npos) << line << '\n' << told;
    }

    /// Follows a table line by line: "3 check bank.orv => text" runs it and expects its exit code and a part
    /// of what it prints, "! statement" changes bank.orv, and "? query => value" or "?file query => value"
    /// asks.
    void follow(const QString& table) const
    {
        for (const QString& line : table.split('\n', Qt::SkipEmptyParts)) {
            const QString sign = line.section(' ', 0, 0);
            const std::string step = line.section(' ', 1).section(" => ", 0, 0).toStdString();
            const std::string outcome = line.section(" => ", 1).replace("\\n", "\n").toStdString();
            if (sign == '!')
                exec(step);
            else if (sign.startsWith('?'))
                EXPECT_EQ(value(step, sign.size() > 1 ? sign.mid(1).toStdString() : "bank.orv"), outcome)
                    << step;
            else
                expect(step, sign.toInt(), outcome);
        }
    }

private:
    QTemporaryDir directory_;
};
