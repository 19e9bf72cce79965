#include "folder.h"

#include "bank/accounts.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace {

class Owner : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(folder.run({"create", "bank.orv", "--from", "data"}).first, 0); }

    [[nodiscard]] std::string value(const std::string& sql, const std::string& file = "bank.orv") const
    {
        SQLite::Database database(folder.path(file));
        return database.execAndGet(sql).getString();
    }

    const Folder folder;
};

TEST_F(Owner, GivesOnlyWhatTheLoginTakes)
{
    const std::string longest = QString("😀").repeated(15).toStdString();
    const auto [code, printed] = folder.run({"admin", "bank.orv", "add", longest, "--generate"});
    EXPECT_EQ(code, 0) << printed;
    EXPECT_NE(printed.find('"' + value("select password from users where rowid = 2") + '"'),
              std::string::npos);
    const std::string formerPassword = value("select password from users where rowid = 1");
    EXPECT_EQ(folder.run({"admin", "bank.orv", "password", "owner", "--generate"}).first, 0);
    EXPECT_NE(value("select password from users where rowid = 1"), formerPassword);
    for (const std::string name : {"", "a b", "sixteen-letters-", "owner"})
        EXPECT_EQ(folder.run({"admin", "bank.orv", "add", name, "--generate"}).first, 1) << name;
    EXPECT_EQ(folder.run({"admin", "bank.orv", "password", "nobody", "--generate"}).first, 1);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "list"}), std::pair(0, "owner\n" + longest + '\n'));
    for (const QString password : {"", " secret", "secret\t", "sixteen-letters-"})
        EXPECT_NE(bank::passwordFault(password), "") << password.toStdString();
    EXPECT_EQ(bank::passwordFault("my secret"), "");
}

TEST_F(Owner, BacksUpWhatIsCommitted)
{
    SQLite::Database game(folder.path("bank.orv"), SQLite::OPEN_READWRITE);
    SQLite::Transaction writing(game, SQLite::TransactionBehavior::IMMEDIATE);
    game.exec("update questions set a = 9");
    EXPECT_EQ(folder.run({"backup", "bank.orv", "copy.orv"}).first, 0);
    writing.commit();
    EXPECT_EQ(value("select sum(a) || count(*) from questions", "copy.orv"), "1515");
    EXPECT_EQ(folder.run({"backup", "bank.orv", "copy.orv"}),
              std::pair(1, std::string("copy.orv exists already and is left as it is\n")));
    EXPECT_EQ(folder.names(), (QStringList{"bank.orv", "copy.orv", "data"}));
}

TEST_F(Owner, CountsPlays)
{
    SQLite::Database(folder.path("bank.orv"), SQLite::OPEN_READWRITE)
        .exec("update questions set a = 2, b = 4 where question_id = 4; update questions set d = 0 where "
              "question_id = 7");
    const auto [code, printed] = folder.run({"stats", "bank.orv", "--from", "data"});
    EXPECT_EQ(code, 0);
    for (const std::string line : {"level 1                       5          1          4       75 %\n",
                                   "  words                       5          0          0          -\n",
                                   "       4     1      4   75 %  2 one?\n"})
        EXPECT_NE(printed.find(line), std::string::npos) << printed;
}

} // namespace
