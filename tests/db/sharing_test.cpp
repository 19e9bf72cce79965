#include "bank.h"

#include <SQLiteCpp/Transaction.h>

#include <gtest/gtest.h>

#include <thread>

namespace db_test {
namespace {

using namespace db::statements;

TEST(Sharing, ACursorReadHalfWayLetsOthersWriteAndSeesIt)
{
    const Bank bank;
    auto game = connect(bank, 0ms);
    auto editor = connect(bank, 0ms);
    auto drawn = game.Execute(questionIdsOfLevel(level1));
    auto messages = game.Execute(promptMessages());
    EXPECT_EQ(drawn.text("question_id") + messages.text("message"), QStringLiteral("1sure?"));

    auto edited = open(allQuestions(), editor);
    edited.MoveNext();
    edited.set("question", QStringLiteral("4th"));
    edited.Update();
    edited.MoveLast();
    edited.Delete();
    bank.run("begin exclusive; insert into locking values ('sure indeed?'); commit");

    EXPECT_EQ(trace(drawn, "next next previous"), "4 !gone 4");
    EXPECT_EQ(trace(messages, "next next", "message"), "really? sure indeed?");
}

TEST(Sharing, MovesGoOnFromARowThatAnotherProgramDeleted)
{
    for (const auto& [moves, places] :
         {std::pair{"next", "5"}, {"previous", "1"}, {"0", "!gone"}, {"last", "6"}}) {
        const Bank bank;
        auto rows = open(allQuestions(), connect(bank));
        rows.MoveNext();
        bank.run("delete from questions where question_id = 4");
        EXPECT_EQ(trace(rows, moves), places);
    }
}

TEST(Sharing, ALockedFileIsReportedAfterTheWaitAndUsableAfterwards)
{
    const Bank bank;
    auto rows = open(allQuestions(), connect(bank));
    const auto write = [&] { rows.set("a", 9), rows.Update(); };
    {
        auto other = bank.engine();
        const SQLite::Transaction lock(other, SQLite::TransactionBehavior::EXCLUSIVE);
        EXPECT_EQ(causeOf([&] { connect(bank); }), Cause::Locked);
        EXPECT_EQ(causeOf([&] { rows.MoveNext(); }), Cause::Locked);
        EXPECT_EQ(causeOf([&] { write(); }), Cause::Locked);
        const auto reading = failureOf([&] { (void)rows.text("question"); });
        EXPECT_EQ(reading.message().toStdString(),
                  "The question bank \"" + bank.path().toStdString() +
                      "\" cannot be read: another program is using it. Wait until the other "
                      "program is done or close it, and try again. (database is locked)");
    }
    EXPECT_EQ(trace(rows, "0"), "1");
    {
        auto other = bank.engine();
        SQLite::Statement reader(other, "select * from questions");
        reader.executeStep();
        EXPECT_EQ(causeOf([&] { write(); }), Cause::Locked) << "a reader keeps a write from being finished";
        EXPECT_EQ(rows.number("a"), 1);
    }
    write();
    EXPECT_EQ(bank.read("select a from questions where question_id = 1"), "9");
}

TEST(Sharing, ALockThatGoesInTimeIsWaitedFor)
{
    const Bank bank;
    auto rows = open(allQuestions(), connect(bank, 3s));
    auto other = bank.engine();
    other.exec("begin exclusive");
    std::thread release([&] {
        std::this_thread::sleep_for(200ms);
        other.exec("commit");
    });
    EXPECT_EQ(trace(rows, "next"), "4");
    release.join();
}

} // namespace
} // namespace db_test
