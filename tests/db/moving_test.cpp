#include "bank.h"

#include <gtest/gtest.h>

#include <tuple>

namespace db_test {
namespace {

using namespace db::statements;

// A walk through the table, a filtered walk and a list of keys must not differ.
TEST(Moving, WalkAndListStepAlike)
{
    const std::pair<const char*, const char*> journeys[] = {
        {"next next next first", "4 6 eof 1"},
        {"previous previous", "bof !bof"},
        {"previous next", "bof 1"},
        {"last next next previous", "6 eof !eof 6"},
        {"last previous previous previous", "6 4 1 bof"},
        {"2 -1 0 -1", "6 4 4 1"},
        {"3 -3 -1", "eof 1 bof"},
        {"-1 3 1", "bof 6 eof"},
        {"9223372036854775807 -9223372036854775808", "eof bof"},
        {"next delete next previous", "4 ! 6 1"},
        {"next delete previous next", "4 ! 1 6"},
        {"delete previous next", "! bof 4"},
        {"last delete next previous", "6 ! eof 4"},
        {"next delete 0 -1", "4 ! ! 1"},
        {"delete 2", "! 6"},
        {"delete 3", "! eof"},
        {"delete delete first delete first delete first", "! !! 4 ! 6 ! none"},
        {"delete first delete first delete next first next last", "! 4 ! 6 ! eof none !none none"},
    };
    for (const auto& query : {allQuestions(), questionsOfLevel(level1), questionIdsOfLevel(level1)}) {
        for (const auto& [moves, places] : journeys) {
            const Bank bank;
            bank.run("delete from questions where Level = '2'");
            auto rows = open(query, connect(bank));
            EXPECT_EQ(trace(rows, moves), places) << moves;
        }
    }
}

TEST(Moving, EachQuerySelectsItsRows)
{
    const auto sonia = QStringLiteral("sonia");
    const std::tuple<db::Query, const char*, const char*> cases[] = {
        {questionIdsOfLevel(level1), "question_id", "1 4 6 eof 1"},
        {questionsOfLevel(level1), "QUESTION", "one four six eof one"},
        {questionsOfLevel(QStringLiteral("3")), "question", "none !none !none !none none"},
        {questionById(4), "d", "8 eof !eof !eof 8"},
        {questionById(3), "question", "none !none !none !none none"},
        {allQuestions(), "question", "one four five six one"},
        {promptMessages(), "message", "sure? really? eof !eof sure?"},
        {account(sonia, QStringLiteral("let me in")), "username", "sonia eof !eof !eof sonia"},
        {account(sonia, QStringLiteral("let me out")), "username", "none !none !none !none none"},
        {account(sonia, QStringLiteral("' or ''='")), "username", "none !none !none !none none"},
    };
    const Bank bank;
    auto connection = connect(bank);
    for (const auto& [query, field, places] : cases) {
        auto rows = connection.Execute(query);
        EXPECT_EQ(trace(rows, "first next next next first", field), places);
    }
}

TEST(Moving, ARecordsetOpensAgainOnAnotherSourceAndOutlivesItsConnection)
{
    const Bank bank;
    db::Recordset rows;
    {
        auto connection = connect(bank);
        rows = connection.Execute(questionIdsOfLevel(level1));
        EXPECT_EQ(causeOf([&] { (void)rows.text("question"); }), Cause::NoField);
        rows.Close();
        EXPECT_EQ(causeOf([&] { (void)rows.Eof(); }), Cause::Other);
        rows.Open(questionById(5), connection, db::Lock::Optimistic);
    }
    const db::Recordset moved = std::move(rows);
    EXPECT_EQ(moved.text("level"), QStringLiteral("2"));
}

} // namespace
} // namespace db_test
