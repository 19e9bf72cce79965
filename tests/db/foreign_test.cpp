#include "bank.h"

#include <gtest/gtest.h>

#include <tuple>

namespace db_test {
namespace {

using namespace db::statements;

std::string questionsWith(const std::string& id, const std::string& options = "")
{
    return "create table Questions (Hint text, LEVEL text, " + id +
           ", Question, answer1, answer2, answer3, answer4, correct_answer, a, b, c, d) " + options + ";";
}

// Whatever tool made the table, it is walked in the order of question_id, and a new row gets a number.
TEST(Foreign, EveryKindOfQuestionIdIsServed)
{
    const std::pair<const char*, const char*> tables[] = {
        {"question_id integer primary key", ""},
        {"question_id integer primary key autoincrement", ""},
        {"question_id integer primary key desc", ""},
        {"question_id integer", ""},
        {"question_id int primary key", ""},
        {"question_id text", ""},
        {"question_id integer, rowid text, oid text", ""},
        {"QUESTION_ID integer primary key", "without rowid"},
    };
    for (const auto& [id, options] : tables) {
        SCOPED_TRACE(std::string(id) + options);
        const Bank bank(questionsWith(id, options) + "insert into questions (question_id, d)"
                                                     " values (3, 0), (-1, 0), (10, 0)");
        auto rows = open(allQuestions(), connect(bank));
        EXPECT_EQ(trace(rows, "first next next next previous previous"), "-1 3 10 eof 10 3");
        rows.AddNew();
        rows.set("Question", QStringLiteral("added"));
        rows.Update();
        EXPECT_EQ(place(rows), "11");
        EXPECT_EQ(trace(rows, "first last previous delete next"), "-1 11 10 ! 11");
        auto found = open(questionById(11), connect(bank));
        found.set("d", 4);
        found.Update();
        EXPECT_EQ(bank.read("select question_id, d from questions order by cast(question_id as integer)"),
                  "-1 0,3 0,11 4");
    }
}

TEST(Foreign, QuestionsWithEqualOrNoNumbersAreAllWalkedAndDifferent)
{
    const Bank bank(questionsWith("question_id integer") +
                    "insert into questions (question_id, question) values (3, 'x'), (3, 'y'), (null, 'z')");
    auto rows = open(allQuestions(), connect(bank));
    EXPECT_EQ(trace(rows, "first next next next previous", "question"), "z x y eof y");
    rows.Delete();
    EXPECT_EQ(bank.read("select question from questions"), "x,z");
    bank.run("update questions set question_id = 9223372036854775807 where question = 'x'");
    EXPECT_EQ(causeOf([&] { rows.AddNew(), rows.Update(); }), Cause::Other) << "there is no next number";
    EXPECT_EQ(bank.read("select question from questions"), "x,z");
}

TEST(Foreign, IdsAndQuestionsOfALevelComeInTheSameOrder)
{
    for (const char* index : {"", "create index i on questions (level)",
                              "create index i on questions (level, question); analyze"}) {
        for (const char* id : {"question_id integer primary key", "question_id int primary key"}) {
            const Bank bank(questionsWith(id) + index);
            bank.run("insert into questions (question_id, question, level) values"
                     " (7, 'a', '1'), (2, 'z', '1'), (5, 'm', '2'), (3, 'b', '1')");
            auto ids = open(questionIdsOfLevel(level1), connect(bank));
            auto questions = open(questionsOfLevel(level1), connect(bank));
            EXPECT_EQ(trace(ids, "0 next next next"), trace(questions, "0 1 1 1")) << index << id;
        }
    }
}

TEST(Foreign, ATableThatCannotBeUsedIsRefusedInWords)
{
    const std::string noLevel = "create table questions (question_id, question, answer1, answer2, answer3,"
                                " answer4, correct_answer, a, b, c, d)";
    const std::tuple<std::string, Cause, const char*> cases[] = {
        {"create table other (x)", Cause::NoTable, "it has no usable table named questions."},
        {noLevel, Cause::NoField, "its table questions has no field named Level."},
        {"create table q (x); create view questions as select * from q", Cause::NoTable, "questions."},
        {questionsWith("question_id int, rowid, oid, _rowid_"), Cause::NoTable, "questions."},
        {questionsWith("question_id, k primary key", "without rowid"), Cause::NoTable, "questions."},
    };
    for (const auto& [script, cause, words] : cases) {
        const Bank bank(script);
        const auto failure = failureOf([&] { open(allQuestions(), connect(bank)); });
        EXPECT_EQ(failure.cause(), cause) << script;
        EXPECT_TRUE(failure.message().contains(QString::fromLatin1(words))) << failure.what();
    }
    const Bank bank;
    auto connection = connect(bank);
    const auto users = QStringLiteral("Users");
    connection.require(users, {QStringLiteral("PASSWORD")});
    EXPECT_EQ(causeOf([&] { connection.require(users, {QStringLiteral("email")}); }), Cause::NoField);
    bank.run("drop table locking");
    EXPECT_EQ(causeOf([&] { connection.Execute(promptMessages()); }), Cause::NoTable);
}

TEST(Foreign, ValuesOfEveryKindAreReadAsTextAndNumber)
{
    const std::tuple<std::string, QString, qint64> cases[] = {
        {"null", {}, 0},
        {"42", QStringLiteral("42"), 42},
        {"' 17 '", QStringLiteral(" 17 "), 17},
        {"2.0", QStringLiteral("2.0"), 2},
        {"'a' || char(0) || 'b'", QString::fromUtf8("a\0b", 3), 0},
        {"x'c3a9'", QStringLiteral("\u00e9"), 0},
        {"cast(x'61ff62' as text)", QStringLiteral("a\ufffdb"), 0},
        {"char(128512)", QStringLiteral("\U0001F600"), 0},
        {"replace(hex(zeroblob(500000)), '0', 'n')", QString(1000000, u'n'), 0},
    };
    for (const std::string encoding : {"UTF-8", "UTF-16le"}) {
        const Bank bank("pragma encoding = '" + encoding + "'; create table locking (message, more)");
        const auto connection = connect(bank);
        for (const auto& [literal, text, number] : cases) {
            if (encoding != "UTF-8" && literal.find("x'") != std::string::npos) {
                continue; // bytes mean something else there
            }
            bank.run("delete from locking; insert into locking values (" + literal + ", 'more')");
            auto rows = open(promptMessages(), connection);
            EXPECT_EQ(rows.text("message"), text) << literal;
            EXPECT_EQ(rows.number("message"), number) << literal;
            rows.set("message", text);
            rows.Update();
            EXPECT_EQ(rows.text("message"), text) << literal;
            const auto size = encoding == "UTF-8" ? text.toUtf8().size() : text.size() * 2;
            EXPECT_EQ(bank.read("select more, length(cast(message as blob)) from locking"),
                      "more " + std::to_string(size));
        }
    }
}

TEST(Foreign, ABankInWriteAheadModeIsServed)
{
    const Bank bank;
    bank.run("pragma journal_mode = wal");
    auto rows = open(questionById(1), connect(bank));
    rows.set("a", 3);
    rows.Update();
    EXPECT_EQ(bank.read("select a from questions where question_id = 1"), "3");
}

} // namespace
} // namespace db_test
