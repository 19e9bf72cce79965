#include "rows.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace db_test {

TEST(Sharing, ACursorReadHalfWayLetsOthersWriteAndSeesIt)
{
    const Bank bank;
    bank.execute("insert into locking values ('really?')");
    auto game = connect(bank);
    auto drawn = game.Execute(questionIdsOfLevel("1"));
    auto messages = game.Execute(promptMessages());
    EXPECT_EQ(place(drawn) + place(messages, "message"), "11shall I lock it?");

    auto edited = open(bank, allQuestions());
    edited.set("question", "1st");
    edited.Update();
    EXPECT_EQ(trace(edited, "4 delete"), "15 !");
    bank.execute("delete from locking where message <> 'really?'; insert into locking values ('sure?')");

    EXPECT_EQ(trace(drawn, "3 1 -1"), "14 !gone 14");
    EXPECT_EQ(trace(messages, "0 1 1 -2", "message"), "!gone really? sure? bof");
}

TEST(Sharing, ARowThatOthersChangedSinceItWasReadIsNotWrittenUntilItIsReadAnew)
{
    const Bank bank;
    auto rows = open(bank, questionByKey(11));
    bank.execute("update questions set question = 'theirs', a = 5 where question_id = 11");
    EXPECT_EQ(trace(rows, "set update delete set update", "a"), "1 !changed:1 !changed:1 1 !changed:1");
    EXPECT_EQ(trace(rows, "0", "question"), "theirs");
    bank.execute("update questions set d = 9 where question_id = 11");
    EXPECT_EQ(trace(rows, "set update", "d"), "1 9");
    EXPECT_EQ(bank.value("select question || answer1 || a || d from questions"), "theirsmine59");
}

TEST(Sharing, ALockedFileIsReportedAfterTheWaitAndUsableAfterwards)
{
    const Bank bank;
    auto rows = open(bank, allQuestions());
    SQLite::Database other(bank.path().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("begin exclusive");
    const auto begun = std::chrono::steady_clock::now();
    const auto message = failureOf([&] { connect(bank, 40ms); }).message();
    EXPECT_GE(std::chrono::steady_clock::now() - begun, 40ms);
    EXPECT_TRUE(message.contains("cannot be opened: another program is using it. Wait"));
    EXPECT_EQ(trace(rows, "1 set update last"), "!locked:11 11 !locked:11 !locked:11");
    other.exec("update questions set question = 'theirs' where question_id = 11; commit");
    EXPECT_EQ(trace(rows, "set update 0"), "11 !changed:11 11") << "a move that failed forgets nothing";
    other.exec("begin; select * from questions");
    EXPECT_EQ(trace(rows, "set update"), "11 !locked:11") << "a reader keeps a write from being finished";
    other.exec("commit");
    EXPECT_EQ(trace(rows, "set update"), "11 11");
    EXPECT_EQ(bank.value("select group_concat(question_id) from questions where answer1 = 'mine'"), "11");
}

} // namespace db_test
