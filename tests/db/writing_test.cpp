#include "bank.h"

#include <gtest/gtest.h>

#include <tuple>

namespace db_test {
namespace {

using namespace db::statements;

void rename(db::Recordset& rows)
{
    rows.set("question", QStringLiteral("new"));
    rows.Update();
}

void add(db::Recordset& rows)
{
    rows.AddNew();
    rename(rows);
}

TEST(Writing, ATallyGrowsInItsRowAndFieldAlone)
{
    const Bank bank;
    auto rows = open(questionById(4), connect(bank));
    rows.set("C", rows.number("c") + 1);
    EXPECT_EQ(rows.number("c"), 8) << "an edit shows before it is written";
    EXPECT_EQ(bank.read("select sum(c) from questions"), "10");
    rows.Update();
    EXPECT_EQ(bank.read("select a, b, c, d from questions"), "1 1 1 1,5 6 8 8,1 1 1 1,1 1 1 1");
}

TEST(Writing, OnlyTheFieldsThatWereSetAreWritten)
{
    const Bank bank;
    auto rows = open(questionById(4), connect(bank));
    EXPECT_EQ(rows.number("a"), 5);
    bank.run("update questions set a = 70, answer1 = cast(x'ff41' as text) where question_id = 4");
    rename(rows);
    EXPECT_EQ(bank.read("select question, a, hex(answer1) from questions where question_id = 4"),
              "new 70 FF41");
    EXPECT_EQ(rows.number("a"), 70) << "after a write the row is read anew";
}

TEST(Writing, ANewRowIsCurrentWithItsNumber)
{
    for (const auto& query : {allQuestions(), questionIdsOfLevel(level1)}) {
        const Bank bank;
        auto rows = open(query, connect(bank));
        rows.AddNew();
        rows.Update();
        EXPECT_EQ(place(rows), "7");
        EXPECT_EQ(trace(rows, "previous"), "6");
    }
    const Bank bank;
    auto rows = open(allQuestions(), connect(bank));
    rows.AddNew();
    rows.set("level", QStringLiteral("3"));
    EXPECT_EQ(rows.text("LEVEL") + rows.text("answer1"), QStringLiteral("3"));
    rename(rows);
    EXPECT_EQ(
        bank.read("select question_id, question, Level, a is null from questions where question_id > 6"),
        "7 new 3 1");
}

TEST(Writing, AnEmptyTableTakesItsFirstRow)
{
    const Bank bank;
    bank.run("delete from locking");
    auto rows = open(promptMessages(), connect(bank));
    EXPECT_EQ(place(rows, "message"), "none");
    rows.AddNew();
    EXPECT_FALSE(rows.Bof() || rows.Eof());
    rows.set("message", QStringLiteral("  \u00e9 \U0001F600 'quoted'\n"));
    rows.Update();
    EXPECT_EQ(bank.read("select message from locking"), "  \u00e9 \U0001F600 'quoted'\n");
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(bank.read("select count(*), count(message) from locking"), "2 1");
}

TEST(Writing, AnEditThatIsNotWrittenIsDropped)
{
    const std::pair<const char*, void (db::Recordset::*)()> cases[] = {
        {"cancel", &db::Recordset::CancelUpdate},
        {"next", &db::Recordset::MoveNext},
        {"first", &db::Recordset::MoveFirst},
        {"delete", &db::Recordset::Delete},
    };
    for (const auto& [name, drop] : cases) {
        for (const bool adding : {false, true}) {
            const Bank bank;
            auto rows = open(allQuestions(), connect(bank));
            if (adding) {
                rows.AddNew();
            }
            rows.set("question", QStringLiteral("lost"));
            (rows.*drop)();
            rows.Update();
            EXPECT_EQ(bank.read("select * from questions where question = 'lost' or question_id > 6"), "")
                << name;
            EXPECT_NE(trace(rows, "first", "question"), "lost") << name;
        }
    }
}

TEST(Writing, WhatCannotBeWrittenIsRefusedAndChangesNothing)
{
    using Rows = db::Recordset;
    const auto remove = [](Rows& rows) { rows.Delete(); };
    const auto trigger = [](const char* when, const char* action) {
        return "create trigger t " + std::string(when) + " on questions begin select raise(" + action +
               "); end";
    };
    const std::string deleted = "delete from questions where question_id = 1";
    const std::tuple<const char*, std::string, Cause, std::function<void(Rows&)>, const char*> cases[] = {
        {"change of a deleted row", deleted, Cause::RowGone, rename, "!gone"},
        {"deletion of a deleted row", deleted, Cause::RowGone, remove, "!gone"},
        {"ignored change", trigger("before update", "ignore"), Cause::RowGone, rename, "1"},
        {"ignored row", trigger("before insert", "ignore"), Cause::Other, add, "1"},
        {"late change", trigger("after update", "abort, 'no'"), Cause::Other, rename, "1"},
        {"late row", trigger("after insert", "fail, 'no'"), Cause::Other, add, "1"},
        {"late deletion", trigger("after delete", "fail, 'no'"), Cause::Other, remove, "1"},
        {"own number", "", Cause::Other, [](Rows& rows) { rows.set("Question_ID", 9); }, "1"},
        {"unknown field", "", Cause::NoField, [](Rows& rows) { rows.set("hint", 9); }, "1"},
        {"change behind", "", Cause::Other, [](Rows& rows) { rows.Move(9), rename(rows); }, "eof"},
        {"deletion behind", "", Cause::Other, [](Rows& rows) { rows.Move(9), rows.Delete(); }, "eof"},
    };
    for (const auto& [name, preparation, cause, work, after] : cases) {
        SCOPED_TRACE(name);
        const Bank bank;
        auto rows = open(allQuestions(), connect(bank));
        bank.run(preparation);
        const auto content = bank.read("select * from questions");
        EXPECT_EQ(causeOf([&rows, &task = work] { task(rows); }), cause);
        EXPECT_EQ(bank.read("select * from questions"), content);
        EXPECT_EQ(place(rows), after);
        bank.run("drop trigger if exists t");
        EXPECT_EQ(trace(rows, "first last"), content.substr(0, 1) + " 6") << "the recordset stays usable";
        rename(rows);
        EXPECT_EQ(bank.read("select question from questions where question_id = 6"), "new");
    }
}

TEST(Writing, RowsForReadingCannotBeChanged)
{
    const Bank bank;
    auto rows = connect(bank).Execute(allQuestions());
    EXPECT_EQ(causeOf([&] { rows.AddNew(); }), Cause::ReadOnly);
    EXPECT_EQ(causeOf([&] { rows.set("a", 2); }), Cause::ReadOnly);
    EXPECT_EQ(causeOf([&] { rows.Delete(); }), Cause::ReadOnly);
    EXPECT_EQ(bank.read("select count(*), sum(a) from questions"), "4 8");
}

TEST(Writing, ThePasswordOfTheFirstOfTwoEqualAccountsIsChanged)
{
    const Bank bank;
    bank.run("insert into users values ('sonia', 'let me in')");
    auto rows = open(account(QStringLiteral("sonia"), QStringLiteral("let me in")), connect(bank));
    rows.set("password", QStringLiteral("o'neil"));
    rows.Update();
    EXPECT_EQ(bank.read("select * from users"), "sonia o'neil,sonia let me in");
    EXPECT_EQ(rows.text("password"), QStringLiteral("o'neil")) << "still the row though it matches no more";
}

} // namespace
} // namespace db_test
