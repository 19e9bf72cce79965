#include "rows.h"

namespace db_test {

// A walk through the table, a filtered walk and a list of keys must not differ.
TEST(Moving, WalkAndListStepAlike)
{
    const std::pair<const char*, const char*> journeys[] = {
        {"1 1 1 1 -1 first", "13 15 eof !eof 15 11"},
        {"last -1 -1 -1 -1 1", "15 13 11 bof !bof 11"},
        {"2 -1 0 9223372036854775807 -9223372036854775808 3", "15 13 13 eof bof 15"},
        {"1 delete 0 -1 1", "13 ! ! 11 15"},
        {"delete -1 1", "! bof 13"},
        {"delete 2 delete 1 -1", "! 15 ! eof 13"},
        {"delete delete first delete first delete 1 first 1 last", "! !! 13 ! 15 ! eof none !none none"},
    };
    for (const auto& query : {allQuestions(), questionsOfLevel("1"), questionIdsOfLevel("1")}) {
        for (const auto& [moves, places] : journeys) {
            const Bank bank;
            bank.execute("delete from questions where question_id not in (11, 13, 15)");
            auto rows = open(bank, query);
            EXPECT_EQ(trace(rows, moves), places) << moves;
        }
    }
}

TEST(Moving, ARoundPassesEveryRowOnceAndEndsWithTheCurrentOne)
{
    // Moves, what others delete then, the rows passed by a walk and by a list of keys.
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"first 1", "0", "15,11,13,", "15,11,13,"}, {"last", "0", "11,13,15,", "11,13,15,"},
        {"last 1", "0", "11,13,15,", "11,13,15,"},  {"first 1 delete", "0", "11,15,", "11,15,"},
        {"first 1", "13, 15", "11,", ",11,,"},      {"last", "11, 13, 15", "", ",,,"},
    };
    for (const auto& query : {allQuestions(), questionsOfLevel("1"), questionIdsOfLevel("1")}) {
        for (const auto& [moves, others, walked, listed] : cases) {
            for (const qint64 most : {1, 2, 9}) {
                const Bank bank;
                bank.execute("delete from questions where question_id not in (11, 13, 15)");
                auto rows = open(bank, query);
                trace(rows, moves);
                bank.execute(std::string("delete from questions where question_id in (") + others + ")");
                const auto passed = round(rows, most);
                EXPECT_TRUE(passed == walked || passed == listed) << moves << " " << others << ": " << passed;
            }
        }
    }
}

TEST(Moving, EachQuerySelectsItsRowsForReading)
{
    const std::tuple<db::Query, const char*, const char*> cases[] = {
        {questionIdsOfLevel("1"), "question_id", "11 12 15 eof"},
        {questionsOfLevel("2"), "QUESTION_ID", "21 22 25 eof"},
        {questionByKey(32), "answer3", "3.2 three eof 3.2 three eof"},
        {allQuestions(), "question_id", "11 12 35 eof"},
        {promptMessages(), "message", "shall I lock it? really? really? eof"},
        {account("sonia", "let me in"), "username", "sonia eof sonia eof"},
        {account("sonia", "' or ''='"), "username", "none !none none !none"},
    };
    const Bank bank;
    bank.execute("insert into users values ('sonia', 'let me in'); insert into locking values ('really?')");
    auto connection = connect(bank);
    for (const auto& [query, field, places] : cases) {
        auto rows = connection.Execute(query);
        EXPECT_EQ(trace(rows, "first 1 last 1", field), places);
        for (const char* change : {"new", "set", "delete"})
            EXPECT_TRUE(trace(rows, change, field).starts_with("!readonly:"));
    }
}

TEST(Moving, ARecordsetOpensAgainOnAnotherSourceAndOutlivesItsConnection)
{
    const Bank bank;
    db::Recordset rows;
    {
        auto connection = connect(bank);
        rows = connection.Execute(questionIdsOfLevel("1"));
        EXPECT_EQ(failureOf([&] { (void)rows.text("question"); }).cause(), Cause::NoField);
        rows.Open(questionByKey(25), connection, db::Lock::Optimistic);
    }
    EXPECT_EQ(place(rows, "level"), "2");
    rows.Close();
    EXPECT_EQ(failureOf([&] { rows.MoveFirst(); }).cause(), Cause::Other);
}

} // namespace db_test
