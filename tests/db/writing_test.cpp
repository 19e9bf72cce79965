#include "rows.h"

namespace db_test {

TEST(Writing, OnlyTheFieldsThatWereSetAreWritten)
{
    const Bank bank;
    bank.execute("update questions set answer1 = cast(x'ff41' as text) where question_id = 12");
    auto rows = open(bank, questionByKey(12));
    EXPECT_EQ(rows.number("a"), 1);
    bank.execute("update questions set a = 70 where question_id = 12");
    rows.set("C", rows.number("c") + 1);
    EXPECT_EQ(rows.number("c"), 2) << "an edit shows before it is written";
    rows.Update();
    EXPECT_EQ(rows.number("a"), 70) << "after a write the row is read anew";
    EXPECT_EQ(bank.value("select group_concat(question_id || ' ' || a || b || c || d || hex(answer1))"
                         " from questions where a + b + c + d > 4"),
              "12 70121FF41");
}

// Whatever tool made the table, it is walked in the order of question_id, and a new row gets a number.
TEST(Writing, ANewRowIsCurrentWithItsNumberForEveryKindOfQuestionId)
{
    const std::tuple<std::string, const char*, bool> tables[] = {
        {"question_id integer primary key", "", true},
        {"question_id integer", "", true},
        {"question_id text, rowid", "", true},
        {"QUESTION_ID integer primary key", "without rowid", true},
        {"question_id text primary key", "without rowid", false},
        {"question_id integer primary key", "without rowid; insert into questions (question_id) values ('q')",
         false},
    };
    for (const auto& [id, options, isServed] : tables) {
        SCOPED_TRACE(id + options);
        const Bank bank;
        bank.execute("drop table questions; create table Questions (" + id +
                     ", Question, answer1, answer2,"
                     " answer3, answer4, correct_answer, LEVEL, a, b, c, d) " +
                     options);
        bank.execute("insert into questions (question_id) values (3), (-1), (10)");
        if (!isServed) {
            EXPECT_EQ(failureOf([&] { open(bank, allQuestions()); }).cause(), Cause::NoField);
            continue;
        }
        auto rows = open(bank, allQuestions());
        EXPECT_EQ(round(rows, 2), "3,10,-1,");
        EXPECT_EQ(trace(rows, "first 1 1 1 -1 -1 last 1"), "-1 3 10 eof 10 3 10 eof");
        rows.AddNew();
        EXPECT_FALSE(rows.Bof() || rows.Eof());
        rows.Update();
        EXPECT_EQ(place(rows), "11");
        EXPECT_EQ(trace(rows, "first last -1 delete 1"), "-1 11 10 ! 11");
        EXPECT_EQ(bank.value("select count(*) from questions where question_id = 11 and a is null"), "1");
    }
}

TEST(Writing, QuestionsWithEqualOrNoNumbersAreAllWalkedAndDifferent)
{
    const Bank bank;
    bank.execute("create table q as select * from questions limit 3; drop table questions;"
                 "update q set question_id = nullif(3, rowid); alter table q rename to questions");
    auto rows = open(bank, allQuestions());
    EXPECT_EQ(trace(rows, "first 1 1 1 -1 delete -1", "answer1"),
              "1.3 one 1.1 one 1.2 one eof 1.2 one ! 1.1 one");
    EXPECT_EQ(bank.value("select group_concat(answer1) from questions"), "1.1 one,1.3 one");
    bank.execute("delete from questions where answer1 = '1.3 one'");
    EXPECT_EQ(trace(rows, "first", "answer1"), "1.1 one") << "a row that others deleted is passed over";
    EXPECT_EQ(trace(rows, "1 last", "answer1"), "eof 1.1 one");
}

TEST(Writing, WhatIsNotWrittenOrRefusedChangesNothing)
{
    const std::string refused = " on questions begin select raise(fail, 'no'); end";
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {"delete from questions where question_id = 11", "set update last", "11 !gone:11 35"},
        {"create trigger t after insert" + refused, "new update last", "!11 35"},
        {"create trigger t after delete" + refused, "delete last", "!11 35"},
        {"", "number 99 set update last", "!11 eof !eof eof 35"},
        {"", "set 1 update last update", "11 12 12 35 35"},
        {"", "new set last update 0 update", "35 35 35 35"},
    };
    for (const auto& [preparation, moves, places] : cases) {
        const Bank bank;
        auto rows = open(bank, allQuestions());
        bank.execute(preparation);
        const auto content = "select group_concat(question_id || answer1) from questions";
        const auto before = bank.value(content);
        EXPECT_EQ(trace(rows, moves), places) << preparation;
        EXPECT_EQ(bank.value(content), before) << moves;
    }
}

} // namespace db_test
