#include "folder.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <tuple>

namespace {

/// A statement that inserts a question of level 1 whose right answer is "yes".
std::string insertion(const std::string& text, const std::string& options = "'yes', 'no', 'both', 'none'")
{
    return "insert into questions values (null, '" + text + "', " + options + ", 'yes', '1', 1, 1, 1, 1);";
}

std::string several(int count, const std::string& level)
{
    return "with n(i) as (select 100 union all select i + 1 from n where i < 99 + " + std::to_string(count) +
           ") insert into questions select null, 'What is ' || i, 'yes', 'no', 'both', 'none', 'yes', '" +
           level + "', 1, 1, 1, 1 from n";
}

TEST(Check, FindsEveryKindOfFault)
{
    const std::string one = insertion("Did Newton see the apple fall?");
    const std::tuple<std::string, int, std::string> cases[] = {
        {"select 1", 0, "bank.orv: no faults"},
        {"update questions set answer2 = ''", 3, "question 1: option B is missing"},
        {"update questions set question = null where question_id = 7", 3, "question 7: question is missing"},
        {"update questions set answer1 = ' The  TWO' where question_id = 1", 3,
         "1: options A and B are equal"},
        {"update questions set correct_answer = 'two'", 3,
         "question 1: the right answer \"two\" is none of the"},
        {"update questions set correct_answer = 'The Two'", 0, "no faults"},
        {"update questions set Level = '4' where question_id = 7", 3, "question 7: level \"4\" is none of"},
        {"create table q as select * from questions; drop table questions; create table questions "
         "(question_id "
         "integer primary key, question, answer1, answer2, answer3, answer4, correct_answer, Level, a, b, c, "
         "d);"
         "insert into questions select question_id, question, answer1, answer2, answer3, answer4, "
         "correct_answer, "
         "cast(Level as integer), a, b, c, d from q",
         3, "level \"1 (a number, not a text)\" is none of"},
        {"update questions set question = '" + QString("😀").repeated(101).toStdString() +
             "' where question_id = 1",
         3, "question 1: question has 101 characters"},
        {"update questions set question = '" + QString("😀").repeated(100).toStdString() +
             "' where question_id = 1",
         0, "no faults"},
        {"update questions set answer4 = 'abcdefghijklmnopqrstuvwxyz' where question_id = 1", 3,
         "question 1: option D has 26 characters"},
        {"update questions set answer4 = 'a' || char(7) where question_id = 1", 3,
         "option D holds the control character"},
        {"update questions set question = 'a' || char(10) || 'b' where question_id = 1", 3,
         "holds a line break"},
        {"update questions set answer4 = 'a ' where question_id = 1", 3, "option D has a blank at an end"},
        {one + insertion("DID  newton see the apple fall?", "'none', 'no', 'both', 'yes'"), 3,
         "question 17: the same question stands in bank.orv: question 16"},
        {one + insertion("Did Newton see an apple fall"), 3, "question 17: asks nearly the same"},
        {one + insertion("Did Newton see the aple fall?", "'none', 'no', 'both', 'yes'"), 3,
         "17: asks nearly the same"},
        {one + insertion("Did Newton see the big apple fall?"), 3, "question 17: asks nearly the same"},
        {one + insertion("Was it Newton who had seen an apple fall?", "'none', 'no', 'both', 'yes'"), 3,
         "17: asks nearly the same"},
        {one + insertion("Did Newton see the comet rise?"), 0, "no faults"},
        {insertion("What is 5 + 3?") + insertion("What is 5 - 3?"), 0, "no faults"},
        {several(40, "1"), 3,
         "level 1: A is the right letter of 88.9 % of 45 questions, 22 to 28 % are wanted"},
        {several(34, "1"), 0, "no faults"},
        {"delete from questions where Level = '2' and question_id > 3", 3,
         "level 2 has 1 questions, a game needs 5"},
        {"alter table questions drop column c", 3, "its table questions has no field named c"},
        {"drop table locking", 3, "it has no usable table named locking"},
        {"delete from locking", 0, "warning: there is no prompt"},
        {"insert into locking values ('shall  i?')", 3, "the same prompt stands in"},
        {"delete from users", 0, "warning: nobody can log in"},
        {"update users set username = 'the owner'", 0,
         "warning: the account \"the owner\" cannot log in: the name holds"},
    };
    const Folder folder;
    ASSERT_EQ(folder.run({"create", "clean.orv", "--from", "data"}).first, 0);
    for (const auto& [sql, code, expected] : cases) {
        folder.write("bank.orv", folder.content("clean.orv"));
        SQLite::Database(folder.path("bank.orv"), SQLite::OPEN_READWRITE).exec(sql);
        const auto [exit, printed] = folder.run({"check", "bank.orv"});
        EXPECT_EQ(exit, code) << sql << '\n' << printed;
        EXPECT_NE(printed.find(expected), std::string::npos) << sql << '\n' << printed;
    }
    EXPECT_EQ(folder.run({"check", "none.orv"}).first, 1);
    EXPECT_EQ(folder.run({"check"}).first, 2);
}

} // namespace
