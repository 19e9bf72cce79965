#include "folder.h"

#include "bank/command.h"
#include "bank/failure.h"
#include "bank/new_file.h"

#include <QRegularExpression>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

struct Result
{
    int code;
    std::string out;
    std::string err;
};

Result orvbank(std::vector<std::string> arguments, std::ostream& out)
{
    arguments.insert(arguments.begin(), "orvbank");
    std::vector<const char*> argv(arguments.size());
    std::transform(arguments.begin(), arguments.end(), argv.begin(), [](const auto& a) { return a.c_str(); });
    std::ostringstream err;
    const int code = bank::run(static_cast<int>(argv.size()), argv.data(), out, err);
    return {code, "", err.str()};
}

Result orvbank(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    Result result = orvbank(arguments, out);
    result.out = out.str();
    return result;
}

Result create(const Folder& folder)
{
    return orvbank({"create", folder.path("orv.orv"), "--from", folder.path("data")});
}

/// The result of a query, a row a line, each value with its type.
std::string rows(const std::string& file, const std::string& query)
{
    SQLite::Database database(file, SQLite::OPEN_READONLY);
    SQLite::Statement statement(database, query);
    std::string text;
    while (statement.executeStep()) {
        for (int i = 0; i < statement.getColumnCount(); ++i) {
            const auto column = statement.getColumn(i);
            text += (i > 0 ? "|" : "") + std::string(column.isText() ? "'" : "") + column.getString();
        }
        text += "\n";
    }
    return text;
}

std::string passwordIn(const std::string& text)
{
    static const QRegularExpression pattern(QStringLiteral("password \"([a-hjkmnp-z2-9]{12})\""));
    const auto match = pattern.match(QString::fromStdString(text));
    return match.hasMatch() ? match.captured(1).toStdString() : "no password in: " + text;
}

TEST(Create, WritesTheSourceRowByRow)
{
    const Folder folder;
    folder.write("data/questions-2.txt", record("3", "Who said 'it''s \"café\"; --'?", 8, "right: D"));
    folder.write("data/prompts.txt", "Shall I?\nDo you?\n");
    const Result result = create(folder);
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(result.err, "");

    const std::string file = folder.path("orv.orv");
    EXPECT_EQ(rows(file, "SELECT * FROM questions WHERE question_id IN (6, 16)"),
              "6|'Question 1 of 2?|'one|'the two|'three|'four|'the two|'2|1|1|1|1\n"
              "16|'Who said 'it''s \"café\"; --'?|'one|'the two|'three|'four|'four|'3|1|1|1|1\n");
    EXPECT_EQ(rows(file, "SELECT Level, count(*), max(question_id) FROM questions GROUP BY Level"),
              "'1|5|5\n'2|5|10\n'3|6|16\n");
    EXPECT_EQ(rows(file, "SELECT * FROM locking"), "'Shall I?\n'Do you?\n");
    EXPECT_EQ(rows(file, "SELECT * FROM users"), "'owner|'" + passwordIn(result.out) + "\n");
    EXPECT_EQ(rows(file, "PRAGMA journal_mode"), "'delete\n");
    EXPECT_EQ(rows(file, "PRAGMA index_info(questions_by_level)"), "0|7|'Level\n");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"orv.orv"});

    std::filesystem::remove(file);
    EXPECT_NE(passwordIn(create(folder).out), passwordIn(result.out));
}

TEST(Create, LeavesAnExistingFileAlone)
{
    const Folder folder;
    const std::string content("mine\0\n", 6);
    folder.write("orv.orv", content);
    const Result result = create(folder);
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, folder.path("orv.orv") + " exists already and is left as it is\n");
    EXPECT_EQ(folder.read("orv.orv"), content);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"orv.orv"});
}

TEST(Create, NeverReplacesAFileThatAppearsMeanwhile)
{
    const Folder folder;
    {
        bank::NewFile file(folder.path("orv.orv"));
        folder.write("orv.orv", "theirs");
        EXPECT_THROW(file.publish(), bank::Failure);
    }
    EXPECT_EQ(folder.read("orv.orv"), "theirs");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"orv.orv"});
}

TEST(Create, LeavesNothingBehindWhenItFails)
{
    const Folder faulty;
    faulty.write("data/prompts.txt", "\n");
    EXPECT_EQ(create(faulty).code, 1);
    EXPECT_EQ(faulty.names(), std::vector<std::string>{});

    const Folder unheard;
    std::ostream closed(nullptr);
    EXPECT_EQ(orvbank({"create", unheard.path("orv.orv"), "--from", unheard.path("data")}, closed).code, 1);
    EXPECT_EQ(unheard.names(), std::vector<std::string>{});
}

TEST(Command, TellsWrongUsageFromBadInput)
{
    struct Case
    {
        std::vector<std::string> arguments;
        int code;
        std::string expected; ///< part of what is printed, on standard output if the code is 0
    };
    const Folder folder;
    const Case cases[] = {
        {{"--help"}, 0, "create"},
        {{}, 2, "subcommand is required"},
        {{"create", folder.path("orv.orv")}, 2, "--from is required"},
        {{"create", "--from", folder.path("data")}, 2, "FILE is required"},
        {{"create", folder.path("orv.orv"), "--from", folder.path("nowhere")},
         1,
         "nowhere cannot be read: No such"},
        {{"create", folder.path("no/orv.orv"), "--from", folder.path("data")},
         1,
         "cannot be created: No such"},
    };
    for (const Case& c : cases) {
        const Result result = orvbank(c.arguments);
        EXPECT_EQ(result.code, c.code) << c.expected;
        EXPECT_NE((c.code == 0 ? result.out : result.err).find(c.expected), std::string::npos)
            << result.out << result.err;
        EXPECT_EQ(c.code == 0 ? result.err : result.out, "");
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{});
}

} // namespace
