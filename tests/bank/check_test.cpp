#include "bank_test.h"

#include <tuple>

namespace {

using Check = BankTest;

/// Changes question 1.
std::string with(const std::string& change)
{
    return "update questions set " + change + " where question_id = 1";
}

/// Inserts a question of level 1 whose right answer is "yes".
std::string insertion(const std::string& text, const std::string& options = "'yes', 'no', 'both', 'none'")
{
    return "insert into questions values (null, '" + text + "', " + options + ", 'yes', '1', 1, 1, 1, 1);";
}

std::string several(int count)
{
    return "with n(i) as (select 100 union all select i + 1 from n where i < 99 + " + std::to_string(count) +
           ") insert into questions select null, 'What is ' || i, 'yes', 'no', 'both', 'none', 'yes', '1', "
           "1, 1, 1, 1 from n;";
}

std::string times(int count, const QString& text)
{
    return text.repeated(count).toStdString();
}

TEST_F(Check, FindsEveryKindOfFault)
{
    const std::string one = insertion("Did Newton see the apple fall?");
    const std::string turned = "'none', 'no', 'both', 'yes'";
    const std::string numbers = "update questions set answer1 = '3', answer2 = '4', answer3 = '1,000', "
                                "answer4 = '5 %', correct_answer = '3' where question_id > 15";
    const std::tuple<std::string, int, std::string> cases[] = {
        {"select 1", 0, "bank.orv: 15 questions, no faults"},
        {with("question = null"), 3, "question 1: question is missing\n"},
        {with("correct_answer = 'two'"), 3, "1: the right answer \"two\" is none of the options"},
        {with("correct_answer = 'The Two'"), 0, "no faults"},
        {with("Level = '4'"), 3, "question 1: level \"4\" is none of"},
        {"pragma writable_schema = on; update sqlite_schema set sql = replace(sql, 'Level TEXT', 'Level'); "
         "pragma writable_schema = reset; update questions set Level = 1",
         3, "level \"1 (a number, not a text)\" is none of"},
        {with("question = '" + times(101, "😀") + "'"), 3, "question 1: question has 101 characters"},
        {with("question = '" + times(100, "😀") + "'"), 0, "no faults"},
        {with("question = 'a' || char(10) || 'b'"), 3, "holds a line break"},
        {with("answer4 = char(27) || '[31m'"), 3, "control character U+001B"},
        {with("answer4 = 'a' || char(0x200b)"), 3, "option D holds the invisible character U+200B"},
        {with("answer4 = 'क' || char(0x94d, 0x200d) || 'ष'"), 0, "no faults"},
        {with("answer4 = cast(x'61ff' as text)"), 3, "option D holds broken UTF-8"},
        {with("answer4 = '<b>Emma</b>'"), 0, "option D holds \"<b>\", which is shown as it stands"},
        {with("question = 'R&amp;D?'"), 0, "question holds \"&amp;\""},
        {with("b = 'many'"), 3, "question 1: tally B is no whole number"},
        {with("c = -1"), 3, "tally C is no whole number"},
        {with("a = 0, c = 1000000000"), 0, "no faults"},
        {with("correct_answer = '" + times(61, "x") + "'"), 3, '"' + times(59, "x") + "…\" is none"},
        {with("correct_answer = '" + times(60, "x") + "'"), 3, '"' + times(60, "x") + "\" is none"},
        {with("answer4 = 'a '"), 3, "option D has a blank at an end"},
        {one + insertion("DID  newton see the apple fall?", turned), 3, "17 questions, 1 fault\n"},
        {one + insertion("Did Newton see an apple fall"), 3, "question 17: asks nearly the same"},
        {one + insertion("Did Newton see the aple fall?", turned), 3, "17: asks nearly the same"},
        {one + insertion("Did Newton see the big apple fall?"), 3, "question 17: asks nearly the same"},
        {one + insertion("Was it Newton who had seen an apple fall?", turned), 3, "17: asks nearly the same"},
        {one + insertion("Did Newton see the comet rise?"), 0, "no faults"},
        {one + insertion("Did Newton see 2 apples fall?"), 0, "no faults"},
        {insertion("What is 5 + 3?") + insertion("What is 5 - 3?"), 0, "no faults"},
        {several(40), 3, "A is the right letter of 88.9 % of 45 questions, 22 to 28 % are wanted"},
        {several(34), 0, "no faults"},
        {several(20) + numbers, 0, "100.0 % of 20 questions about numbers, 20 to 30 % are wanted"},
        {several(19) + numbers, 0, "no faults"},
        {several(2), 0, "16: warning: the same four options stand in bank.orv: question 17\n"},
        {several(6), 0, "question 18, bank.orv: question 19 and 2 more\n"},
        {"delete from questions where question_id in (5, 8)", 3, "level 2 has 3 questions, a game needs 5"},
        {"alter table questions drop column c", 3, "its table questions has no field named c"},
        {"drop table locking", 3, "it has no usable table named locking"},
        {"delete from locking", 0, "warning: there is no prompt"},
        {"insert into locking values ('shall  i?')", 3, "the same prompt stands in"},
        {"delete from users", 0, "warning: nobody can log in"},
        {"update users set username = 'the owner'", 0, "\"the owner\" cannot log in: the name holds a"},
        {"update users set password = ' '", 0, "cannot log in: the password has a blank at an end"},
    };
    const std::string clean = content("bank.orv");
    for (const auto& [sql, code, told] : cases) {
        write("bank.orv", clean);
        exec(sql);
        expect("check bank.orv", code, told);
        if (HasFailure())
            FAIL() << sql;
    }
    follow(R"(
! update questions set correct_answer = 'five' where question_id = 1
0 show bank.orv 1 => right: \nThe right answer "five" is none of the options.\n
0 list bank.orv =>      1  1 -  1 one?\n
1 check none.orv => none.orv
2 check => FILE or --from
)");
}

TEST_F(Check, ComplainsAboutEveryFaultyLineOfASource)
{
    const std::tuple<qsizetype, QString, std::string> cases[] = {
        {7, "# D", ":1: option D is missing, four are needed"},
        {9, "why: because\nnothing", ":10:1: the line is not of the form \"name: text\""},
        {9, "why: because\nA: 1\nB: 2", ":10:1: A is given twice; a blank line must part two questions"},
        {9, "why: because\nE: 5", ":10:1: there is no field \"E\""},
        {1, "level: 4", ":1:8: level \"4\" is none of 1, 2, 3"},
        {2, "topic:", ":2:7: topic is missing"},
        {8, "right: e", ":8:8: right \"E\" is none of A, B, C, D"},
        {3, "question: " + QString(101, u'x'), ":3:11: question has 101 characters, at most 100 fit"},
        {6, "  C:  " + QString(26, u'x'), ":6:7: option C has 26 characters, at most 25 fit"},
        {7, "D: THE  two", ":7:4: options B and D are equal"},
        {3, "question: 5  ONE?", ":1: the same question stands in data/questions-1.txt:121"},
        {9, "why: be\u2028cause", ":9:6: why holds the control character U+2028"},
        {4, "A: on\u202Ee", ":4:4: option A holds the invisible character U+202E"},
    };
    for (const auto& [line, text, told] : cases) {
        write("data/questions-9.txt", record("1", "Which word?", line, text));
        EXPECT_EQ(run("create orv.orv --from data"), std::pair(1, "data/questions-9.txt" + told + '\n'));
        expect("check --from data", 3, told);
    }
    write("data/questions-9.txt",
          "\xEF\xBB\xBFright: D\r\nlevel:2\r\n# a comment inside\r\n  topic : words \r\n"
          "question: Who?\r\nA: # 1\r\nB: B\r\nC: 10:30\r\nD: 'four'\r\nwhy: x\r\n \r\n");
    expect("create orv.orv --from data", 0, "16 questions");
    expect("export orv.orv - --format text", 0, "A: # 1\nB: B\nC: 10:30\nD: 'four'\nright: D\n");
    write("data/prompts.txt", std::string(101, 'x') + "\nShall I?\n\n# shall i?\n shall  i?");
    EXPECT_EQ(run("create new.orv --from data").second,
              "data/prompts.txt:1: prompt has 101 characters, at most 100 fit\n"
              "data/prompts.txt:5: the same prompt stands in data/prompts.txt:2\n");
    write("data/prompts.txt", "");
    write("data/questions-1.txt", record("1", "Which?"));
    expect("check --from data", 3,
           "level 3 has 0 questions, a game needs 5\ndata: warning: there is no prompt");
    expect("create new.orv --from nowhere.csv", 1, "nowhere.csv cannot be read: No such file or directory\n");
    EXPECT_EQ(names(), (QStringList{"bank.orv", "data", "orv.orv"}));
}

} // namespace
