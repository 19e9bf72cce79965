#include "bank_test.h"

#include "bank/accounts.h"

#include <tuple>

namespace {

using Owner = BankTest;

TEST_F(Owner, MakesABankThatTheGameTakes)
{
    write("data/questions-2.txt", record("3", "Who said 'it''s \"café\"; --'?", 8, "right: D"));
    std::ostringstream told;
    EXPECT_EQ(run("create orv.orv --from data", &told).first, 0);
    EXPECT_EQ(
        value("select typeof(Level) || Level || question || answer1 || answer2 || answer3 || answer4 || "
              "correct_answer || a || b || c || d || typeof(a) from questions where question_id = 16",
              "orv.orv"),
        "text3Who said 'it''s \"café\"; --'?onethe twothreefourfour1111integer");
    EXPECT_EQ(
        value("select username || length(password) || count(*) || message from users, locking", "orv.orv"),
        "owner121Shall I?");
    EXPECT_NE(told.str().find(value("select password from users", "orv.orv")), std::string::npos);
    EXPECT_NE(value("select password from users", "orv.orv"), value("select password from users"));
    expect("create orv.orv", 1, "orv.orv exists already and is left as it is\n");
    std::ostream closed(nullptr);
    EXPECT_EQ(run("create unseen.orv", &closed).first, 1) << "nobody has read the password";
    EXPECT_EQ(run("admin bank.orv password owner --generate", &closed).first, 1);
    expect("create nowhere.d/orv.orv", 1, "nowhere.d/orv.orv cannot be written: No such file or directory\n");
    EXPECT_EQ(names(), (QStringList{"bank.orv", "data", "orv.orv"}));
}

TEST_F(Owner, KeepsTheAccounts)
{
    const std::string longest = QString("😀").repeated(15).toStdString();
    const auto [code, told] = run("admin bank.orv add " + longest + " --generate");
    EXPECT_EQ(code, 0) << told;
    EXPECT_NE(told.find('"' + value("select password from users where rowid = 2") + '"'), std::string::npos);
    const std::string former = value("select password from users where rowid = 1");
    expect("admin bank.orv password owner --generate", 0, "The password was set.\n");
    EXPECT_NE(value("select password from users where rowid = 1"), former);
    EXPECT_EQ(run("admin bank.orv list"), std::pair(0, "owner\n" + longest + '\n'));
    for (const std::string name : {R"("a b")", "sixteen-letters-", "owner"})
        expect("admin bank.orv add " + name + " --generate", 1, "a");
    expect("admin bank.orv password nobody --generate", 1, "bank.orv has no account \"nobody\"\n");
    expect("admin bank.orv remove " + longest, 0, "removed");
    expect("admin bank.orv remove owner", 1, "without its last account nobody could log in\n");
    expect("admin bank.orv add anna --generate", 0, "The account was added.\n");
    expect("admin bank.orv rename anna owner", 1, "bank.orv has an account \"owner\" already\n");
    expect("admin bank.orv rename anna \"a b\"", 1, "the name holds a blank\n");
    expect("admin bank.orv rename nobody bela", 1, "no account \"nobody\"\n");
    expect("admin bank.orv rename anna bela", 0, "renamed");
    expect("admin bank.orv remove owner", 0, "removed");
    EXPECT_EQ(run("admin bank.orv list").second, "bela\n");
    for (const QString password : {"", " secret", "secret\t", "sixteen-letters-", " "})
        EXPECT_NE(bank::passwordFault(password), "") << password.toStdString();
    EXPECT_EQ(bank::passwordFault("my secret"), "");
}

TEST_F(Owner, FindsAndMendsAQuestion)
{
    const std::tuple<std::string, int, std::string> cases[] = {
        {R"(set bank.orv 4 "question=Who wrote Café?" "A=Zoë = she" right=a level=3)", 0, "level: 3\n"},
        {"show bank.orv 4", 0, "A: Zoë = she  (chosen 0 times)\nB: the two  (chosen 0 times)\n"},
        {R"(search bank.orv "CAFE zoe")", 0, "     4  3 A  Who wrote Café?\n"},
        {"search bank.orv cafe --level 1", 0, "There is no such question.\n"},
        {"search bank.orv cafe four five", 0, "There is no such question.\n"},
        {"list bank.orv --level 1", 0, "     1  1 B  1 one?\n     7  1 B  3 one?\n    10  1 B  4 one?\n"},
        {R"(set bank.orv 5 "question=who wrote café?")", 1, "5: the same question stands in"},
        {"set bank.orv 5 B=ONE", 1, "question 5: options A and B are equal\n"},
        {"set bank.orv 5 why=x", 1, "\"why=x\" is not of the form field=text"},
        {"set bank.orv 5 A", 1, "\"A\" is not of the form field=text"},
        {"delete bank.orv 5", 1, "--yes would delete question 5, \"2 two?\""},
        {"delete bank.orv 5 --yes", 0, "Question 5, \"2 two?\", was deleted.\n"},
        {"show bank.orv 5", 1, "bank.orv has no question 5\n"},
        {"lst", 2, "\"lst\" is no subcommand of orvbank; there are create, check, import, "},
        {"--version", 0, "orvbank "},
        {"admin bank.orv ad anna", 2,
         "\"ad\" is no subcommand of admin; there are add, password, rename, remove, list. Did you mean "
         "add?\n"},
        {"sheet bank.orv one.pdf --count 1", 0, "3 questions"},
        {"search bank.orv", 2, "WORDS is required"},
        {"import bank.orv data --update --replace", 2, "excludes"},
        {"import bank.orv data --update --skip-known", 2, "excludes"},
        {"export bank.orv all.csv --format gfit", 2,
         "\"gfit\" is no format; there are csv, gift, aiken, text. Did you mean gift?\n"},
        {"sheet bank.orv quiz.pdf --count 2", 0, "6 questions went into quiz.pdf.\n"},
        {"prompts bank.orv export prompts.txt", 0, ""},
        {"prompts bank.orv import prompts.txt", 0, "has taken in 0 prompts.\n"},
        {"prompts bank.orv import prompts.txt --replace", 0, "1 prompt in place of those it had.\n"},
        {"create empty.orv", 0, "with 0 questions and 0 prompts.\n"},
        {"prompts empty.orv export none.txt", 0, ""},
        {"prompts bank.orv import twice.txt", 1, "twice.txt:2: the same prompt stands in twice.txt:1\n"},
        {"prompts bank.orv import none.txt", 1, "none.txt: there are no prompts in it\n"},
        {"sheet empty.orv none.pdf", 1, "empty.orv has no questions for a sheet\n"},
        {"import empty.orv data", 0, "has taken in 15 questions and 1 prompt.\n"},
        {"import empty.orv data --replace --shuffle", 0,
         "15 questions and 1 prompt in place of those it had.\n"},
    };
    write("twice.txt", "Sure?\nsure?\n");
    for (const auto& [line, code, told] : cases)
        expect(line, code, told);
    EXPECT_EQ(
        value("select sum(correct_answer = 'the two') || (sum(answer2 = 'the two') < 15) from questions",
              "empty.orv"),
        "151");
    exec("update questions set b = 5");
    expect("export bank.orv all.csv", 0, "");
    expect("import empty.orv all.csv --replace --shuffle", 0, "");
    EXPECT_EQ(
        value("select min(case correct_answer when answer1 then a when answer2 then b when answer3 then c"
              " else d end) from questions where correct_answer = 'the two'",
              "empty.orv"),
        "5")
        << "A tally goes where its option goes.";
    EXPECT_EQ(content("prompts.txt"), "Shall I?\n");
    EXPECT_EQ(content("quiz.pdf").substr(0, 5), "%PDF-");
}

TEST_F(Owner, BringsBackAMendedSheet)
{
    exec("update questions set a = 7, b = 5");
    write("sheet.csv",
          "level,question,A,B,C,D,right\n1,1 one?,the two,one,three,fore,A\n1,2 one?,one,the two,"
          "three,four,B\n1,Did Newton see it fall?,a,b,c,d,A\n1,No?,a,a,c,d,A\n");
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"--skip-known", "has taken in 1 question.\n2 questions that it has stay as they are.\n", "1175"},
        {"--update", "question 1: A, B, D, right changed\nbank.orv has taken in 0 questions.\n1 question was",
         "1157"},
        {"--update", "has taken in 0 questions.\n0 questions were changed.\n3 questions that it", "1157"},
    };
    for (const auto& [option, told, row] : cases) {
        const std::string line = "import bank.orv sheet.csv --skip-unfit --shuffle " + option;
        expect(line + " --dry-run", 0, "sheet.csv:5:9: options A and B are equal; left out\n");
        expect(line, 0, told);
        EXPECT_EQ(value("select question_id || d || a || b from questions where question_id = 1"), row);
    }
    EXPECT_EQ(value("select correct_answer from questions where question like '%Newton%'"), "a");
    write("near.csv",
          "level,question,A,B,C,D,right\n1,Did Newton not see it fall?,x,y,z,a,D\n2,Who?,10,20,30,40,C\n");
    EXPECT_EQ(run("import bank.orv near.csv --shuffle").second,
              "near.csv:2: warning: asks nearly the same as bank.orv: question 16\nbank.orv has taken in 2 "
              "questions.\n");
    EXPECT_EQ(value("select answer1 || answer2 || answer3 || answer4 from questions where question = 'Who?'"),
              "10203040");
}

TEST_F(Owner, RestoresABackupAndKeepsWhatWasThere)
{
    expect("backup bank.orv copy.orv", 0, "copy.orv is a sound copy of bank.orv.\n");
    exec("update questions set a = 3; delete from users");
    expect("restore bank.orv copy.orv", 0, "What it held is kept in bank.orv.before-restore.\n");
    EXPECT_EQ(value("select sum(a) || (select count(*) from users) from questions"), "151");
    EXPECT_EQ(value("select sum(a) from questions", "bank.orv.before-restore"), "45");
    write("bank.orv", std::string(5000, 'x'));
    expect("restore bank.orv copy.orv", 0, "bank.orv.before-restore-2");
    EXPECT_EQ(value("select sum(a) from questions"), "15");
    EXPECT_EQ(content("bank.orv.before-restore-2"), std::string(5000, 'x'));
    exec("update questions set a = 3");
    EXPECT_EQ(run("backup bank.orv gift.orv --for-others").first, 0);
    EXPECT_EQ(value("select sum(a) || (select count(*) from users) from questions", "gift.orv"), "150");
    write("short.orv", content("copy.orv").substr(0, 9000));
    expect("restore bank.orv bank.orv", 1, "bank.orv is that file itself\n");
    for (const std::string bad : {"data/prompts.txt", "none.orv", "short.orv"})
        expect("restore bank.orv " + bad, 1, bad);
    expect("backup short.orv other.orv", 1, "the file is damaged");
    EXPECT_EQ(value("select sum(a) from questions"), "45");
    EXPECT_EQ(names(), (QStringList{"bank.orv", "bank.orv.before-restore", "bank.orv.before-restore-2",
                                    "copy.orv", "data", "gift.orv", "short.orv"}));
}

TEST_F(Owner, BacksUpWhatIsCommitted)
{
    exec("pragma journal_mode = wal");
    SQLite::Database game(path("bank.orv"), SQLite::OPEN_READWRITE);
    game.exec("update questions set b = 8");
    SQLite::Transaction writing(game, SQLite::TransactionBehavior::IMMEDIATE);
    game.exec("update questions set a = 9");
    EXPECT_EQ(run("backup bank.orv copy.orv").first, 0);
    writing.commit();
    EXPECT_EQ(value("select sum(a) || sum(b) || count(*) from questions", "copy.orv"), "1512015");
    EXPECT_EQ(value("pragma journal_mode", "copy.orv"), "delete");
    expect("backup bank.orv copy.orv", 1, "copy.orv exists already and is left as it is\n");
}

TEST_F(Owner, CountsPlays)
{
    exec("update questions set a = 2, b = 4 where question_id = 4; update questions set d = 0 where "
         "question_id = 7");
    expect("stats bank.orv --from data", 0,
           "level 1                       5          1          4       75 %\n"
           "  words                       5          1          4       75 %\n");
    expect("stats bank.orv", 0,
           "\n  number level  plays  right  question\n       4     1      4   75 %  2 one?\n");
    write("bad.csv", "question,A,B,C,D,right,level\nWho?,a,b,c,,A,1\n");
    expect("stats bank.orv --from bad.csv", 1, "bad.csv:2:12: option D is missing, four are needed\n");
    exec("update questions set a = 2000000000000000000, b = 2000000000000000000; update questions set a = 1, "
         "b = 1, c = 4 where question_id = 5; update questions set a = 1, b = question_id / 2 where "
         "question_id in (6, 8)");
    const std::string header = "number,level,plays,right,question\r\n";
    EXPECT_EQ(run("stats bank.orv --csv --hardest").second,
              header + "5,2,3,0,2 two?\r\n8,2,3,3,3 two?\r\n6,3,2,2,2 three?\r\n");
    EXPECT_EQ(run("stats bank.orv --csv --easiest").second,
              header + "8,2,3,3,3 two?\r\n6,3,2,2,2 three?\r\n5,2,3,0,2 two?\r\n");
    EXPECT_EQ(run("stats bank.orv --reset").second,
              "The tallies of all questions are 1 again, as before the first game.\n");
    EXPECT_EQ(run("stats bank.orv --csv").second, header);
}

} // namespace
