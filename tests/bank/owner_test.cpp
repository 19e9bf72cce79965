#include "folder.h"

#include "bank/accounts.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <tuple>

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

TEST_F(Owner, NeverLosesTheLastAccount)
{
    EXPECT_EQ(folder.run({"admin", "bank.orv", "remove", "owner"}).first, 1);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "add", "anna", "--generate"}).first, 0);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "rename", "anna", "owner"}).first, 1);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "rename", "anna", "a b"}).first, 1);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "rename", "anna", "bela"}).first, 0);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "remove", "owner"}).first, 0);
    EXPECT_EQ(folder.run({"admin", "bank.orv", "list"}).second, "bela\n");
}

TEST_F(Owner, FindsAndMendsAQuestion)
{
    using Words = std::vector<std::string>;
    const std::tuple<Words, int, std::string> cases[] = {
        {{"set", "bank.orv", "4", "question=Who wrote Café?", "A=Zoë = she", "right=a", "level=3"},
         0,
         "right: A\n"},
        {{"search", "bank.orv", "CAFE zoe"}, 0, "     4  3 A  Who wrote Café?\n"},
        {{"search", "bank.orv", "cafe", "--level", "1"}, 0, "There is no such question.\n"},
        {{"set", "bank.orv", "5", "question=who wrote café?"},
         1,
         "5: the same question stands in bank.orv: question 4"},
        {{"set", "bank.orv", "5", "B=ONE"}, 1, "question 5: options A and B are equal\n"},
        {{"set", "bank.orv", "5", "why=x"}, 1, "\"why=x\" is not of the form field=text"},
        {{"show", "bank.orv", "5"}, 0, "B: the two  (chosen 0 times)\n"},
        {{"delete", "bank.orv", "5"}, 1, "--yes would delete question 5, \"2 two?\""},
        {{"delete", "bank.orv", "5", "--yes"}, 0, "Question 5, \"2 two?\", was deleted.\n"},
        {{"show", "bank.orv", "5"}, 1, "bank.orv has no question 5\n"},
        {{"lst"}, 2, "Did you mean list?\n"},
        {{"export", "bank.orv", "all.csv", "--format", "gfit"}, 2, "Did you mean gift?\n"},
        {{"sheet", "bank.orv", "quiz.pdf", "--count", "2"}, 0, "6 questions went into quiz.pdf.\n"},
        {{"prompts", "bank.orv", "export", "prompts.txt"}, 0, ""},
        {{"prompts", "bank.orv", "import", "prompts.txt"}, 0, "has taken in 0 prompts.\n"},
        {{"create", "empty.orv"}, 0, "with 0 questions and 0 prompts.\n"},
        {{"import", "empty.orv", "data"}, 0, "has taken in 15 questions and 1 prompt.\n"},
    };
    for (const auto& [words, code, expected] : cases) {
        const auto [exit, printed] = folder.run(words);
        EXPECT_EQ(exit, code) << printed;
        EXPECT_NE(printed.find(expected), std::string::npos) << words[0] << ": " << printed;
    }
}

TEST_F(Owner, BringsBackAMendedSheet)
{
    SQLite::Database(folder.path("bank.orv"), SQLite::OPEN_READWRITE)
        .exec("update questions set a = 7, b = 5");
    folder.write("sheet.csv",
                 "level,question,A,B,C,D,right\n1,1 one?,the two,one,three,fore,A\n1,2 one?,one,the two,"
                 "three,four,B\n1,Did Newton see it fall?,a,b,c,d,A\n1,No?,a,a,c,d,A\n");
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"--skip-known", "has taken in 1 question.\n2 questions that it has stay", "1175"},
        {"--update", "question 1: A, B, D, right changed\nbank.orv has taken in 0 questions.\n1 question was",
         "1157"},
        {"--update", "has taken in 0 questions.\n0 questions were changed.\n3 questions that it", "1157"},
    };
    for (const auto& [option, told, row] : cases) {
        const auto [code, printed] =
            folder.run({"import", "bank.orv", "sheet.csv", option, "--skip-unfit", "--shuffle"});
        EXPECT_EQ(code, 0) << printed;
        EXPECT_NE(printed.find("sheet.csv:5:9: options A and B are equal; left out\n"), std::string::npos)
            << printed;
        EXPECT_NE(printed.find(told), std::string::npos) << printed;
        EXPECT_EQ(value("select question_id || d || a || b from questions where question_id = 1"), row);
    }
    EXPECT_EQ(value("select correct_answer from questions where question like '%Newton%'"), "a");
    folder.write("near.csv", "level,question,A,B,C,D,right\n1,Did Newton not see it fall?,x,y,z,a,D\n");
    EXPECT_NE(folder.run({"import", "bank.orv", "near.csv"})
                  .second.find("near.csv:2: warning: asks nearly the same as"),
              std::string::npos);
}

TEST_F(Owner, RestoresABackupAndKeepsWhatWasThere)
{
    EXPECT_EQ(folder.run({"backup", "bank.orv", "copy.orv"}).first, 0);
    const auto spoil = [&](const char* sql) {
        SQLite::Database(folder.path("bank.orv"), SQLite::OPEN_READWRITE).exec(sql);
    };
    spoil("update questions set a = 3; delete from users");
    EXPECT_EQ(folder.run({"restore", "bank.orv", "copy.orv"}).first, 0);
    EXPECT_EQ(value("select sum(a) || (select count(*) from users) from questions"), "151");
    EXPECT_EQ(value("select sum(a) from questions", "bank.orv.before-restore"), "45");
    folder.write("bank.orv", std::string(5000, 'x'));
    EXPECT_EQ(folder.run({"restore", "bank.orv", "copy.orv"}).first, 0);
    EXPECT_EQ(value("select sum(a) from questions"), "15");
    EXPECT_EQ(folder.content("bank.orv.before-restore-2"), std::string(5000, 'x'));
    spoil("update questions set a = 3");
    EXPECT_EQ(folder.run({"backup", "bank.orv", "gift.orv", "--for-others"}).first, 0);
    EXPECT_EQ(value("select sum(a) || (select count(*) from users) from questions", "gift.orv"), "150");
    for (const std::string bad : {"data/prompts.txt", "bank.orv", "none.orv"})
        EXPECT_EQ(folder.run({"restore", "bank.orv", bad}).first, 1) << bad;
    EXPECT_EQ(value("select sum(a) from questions"), "45");
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
    SQLite::Database(folder.path("bank.orv"), SQLite::OPEN_READWRITE)
        .exec("update questions set a = 2000000000000000000, b = 2000000000000000000; update questions set a "
              "= 1, b = 1, "
              "c = 4 where question_id = 5; update questions set a = 1, b = 3 where question_id = 6");
    const std::string header = "number,level,plays,right,question\r\n";
    EXPECT_EQ(folder.run({"stats", "bank.orv", "--csv", "--hardest"}).second,
              header + "5,2,3,0,2 two?\r\n6,3,2,2,2 three?\r\n");
    EXPECT_EQ(folder.run({"stats", "bank.orv", "--reset"}).first, 0);
    EXPECT_EQ(folder.run({"stats", "bank.orv", "--csv", "--easiest"}).second, header);
}

} // namespace
