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
    auto rows = open(bank, allQuestions());
    const auto seen = rows.text("question");
    bank.execute("update questions set question = 'theirs', a = 5 where question_id = 11");
    const auto write = [&] { rows.set("answer1", "ours"), rows.Update(); };
    for (const std::function<void()>& change :
         {std::function<void()>(write), {[&] { rows.Delete(); }}, {write}}) {
        EXPECT_EQ(failureOf(change).cause(), Cause::RowChanged);
        EXPECT_EQ(rows.text("question"), seen);
    }
    rows.Move(0);
    EXPECT_EQ(rows.text("question"), "theirs");
    bank.execute("update questions set d = 9");
    write();
    EXPECT_EQ(bank.value("select question || answer1 || a || d from questions"), "theirsours59");
}

TEST(Sharing, ALockedFileIsReportedAfterTheWaitAndUsableAfterwards)
{
    const Bank bank;
    auto rows = open(bank, allQuestions());
    SQLite::Database other(bank.path().toStdString(), SQLite::OPEN_READWRITE);
    const auto write = [&] { rows.set("a", 9), rows.Update(); };
    other.exec("begin exclusive");
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(failureOf([&] { connect(bank, 40ms); }).cause(), Cause::Locked);
    EXPECT_GE(std::chrono::steady_clock::now() - begun, 40ms);
    EXPECT_EQ(failureOf([&] { rows.MoveNext(); }).cause(), Cause::Locked);
    EXPECT_EQ(failureOf(write).cause(), Cause::Locked);
    const auto message = failureOf([&] { rows.MoveLast(); }).message();
    EXPECT_TRUE(message.contains("cannot be read: another program is using it. Wait"));
    other.exec("update questions set question = 'theirs' where question_id = 11; commit");
    EXPECT_EQ(failureOf(write).cause(), Cause::RowChanged) << "a move that failed forgets nothing";
    EXPECT_EQ(trace(rows, "0", "question"), "theirs");
    other.exec("begin; select * from questions");
    EXPECT_EQ(failureOf(write).cause(), Cause::Locked) << "a reader keeps a write from being finished";
    other.exec("commit");
    write();
    EXPECT_EQ(bank.value("select group_concat(question_id) from questions where a = 9"), "11");
}

} // namespace db_test
