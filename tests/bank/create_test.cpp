#include "folder.h"

#include "bank/command.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

/// Runs orvbank, which prints all to `out`, and returns its exit code.
int create(const Folder& folder, std::ostream& out, const char* source = "data")
{
    const std::string file = folder.path("orv.orv");
    const std::string data = folder.path(source);
    const char* const arguments[] = {"orvbank", "create", file.c_str(), "--from", data.c_str()};
    return bank::run(5, arguments, out, out);
}

TEST(Create, WritesTheSourceRowByRow)
{
    const Folder folder;
    folder.write("data/questions-2.txt", record("3", "Who said 'it''s \"café\"; --'?", 8, "right: D"));
    folder.write("data/prompts.txt", "Shall I?\nDo you?\n");
    std::ostringstream printed;
    ASSERT_EQ(create(folder, printed), 0) << printed.str();
    EXPECT_EQ(folder.names(), (QStringList{"data", "orv.orv"}));

    SQLite::Database database(folder.path("orv.orv"));
    const std::pair<const char*, const char*> cases[] = {
        {"select group_concat(typeof(Level) || Level) from questions where question_id in (1, 15)",
         "text1,text3"},
        {"select question || answer1 || answer2 || answer3 || answer4 || correct_answer || a || b || c || d"
         " from questions where question_id > 15",
         "Who said 'it''s \"café\"; --'?onethe twothreefourfour1111"},
        {"select group_concat(message) from locking", "Shall I?,Do you?"},
        {"select username || length(password) || count(*) from users", "owner121"},
    };
    for (const auto& [query, value] : cases)
        EXPECT_EQ(database.execAndGet(query).getString(), value);
    const std::string password = database.execAndGet("select password from users");
    EXPECT_NE(printed.str().find(password), std::string::npos);
    std::ostringstream again;
    EXPECT_EQ(create(Folder(), again), 0);
    EXPECT_EQ(again.str().find(password), std::string::npos) << "another file, another password";
}

TEST(Create, NeverReplacesAFile)
{
    const Folder folder;
    folder.write("orv.orv", "theirs");
    std::ostringstream printed;
    EXPECT_EQ(create(folder, printed), 1);
    EXPECT_EQ(printed.str(), folder.path("orv.orv") + " exists already and is left as it is\n");
    EXPECT_EQ(std::filesystem::file_size(folder.path("orv.orv")), 6U);
    EXPECT_EQ(folder.names(), (QStringList{"data", "orv.orv"}));
}

TEST(Create, LeavesNothingBehindWhenItFails)
{
    const Folder folder;
    std::ostream closed(nullptr);
    EXPECT_EQ(create(folder, closed), 1) << "nobody has read the password";
    std::ostringstream printed;
    EXPECT_EQ(create(folder, printed, "nowhere"), 1);
    EXPECT_EQ(printed.str(), folder.path("nowhere") + " cannot be read: No such file or directory\n");
    EXPECT_EQ(folder.names(), QStringList("data"));
}

} // namespace
