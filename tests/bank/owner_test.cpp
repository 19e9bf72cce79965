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
    expect("admin bank.orv remove " + longest, 0, "removed");
    follow(R"(
1 admin bank.orv add "a b" --generate => the name holds a blank\n
1 admin bank.orv add sixteen-letters- --generate => the name has 16 characters
1 admin bank.orv add owner --generate => bank.orv has an account "owner" already\n
1 admin bank.orv password nobody --generate => bank.orv has no account "nobody"\n
1 admin bank.orv remove owner => without its last account nobody could log in\n
0 admin bank.orv add anna --generate => The account was added.\n
1 admin bank.orv rename anna owner => bank.orv has an account "owner" already\n
1 admin bank.orv rename anna "a b" => the name holds a blank\n
1 admin bank.orv rename nobody bela => no account "nobody"\n
0 admin bank.orv rename anna bela => renamed
0 admin bank.orv remove owner => removed
? select group_concat(username) from users => bela
)");
    for (const QString password : {"", " secret", "secret\t", "sixteen-letters-", " "})
        EXPECT_NE(bank::passwordFault(password), "") << password.toStdString();
    EXPECT_EQ(bank::passwordFault("my secret"), "");
}

TEST_F(Owner, FindsAndMendsAQuestion)
{
    write("twice.txt", "Sure?\nsure?\n");
    follow(R"(
0 set bank.orv 4 "question=Who wrote Café?" "A=Zoë = she" right=a level=3 => level: 3\n
0 show bank.orv 4 => A: Zoë = she  (chosen 0 times)\nB: the two  (chosen 0 times)\n
0 search bank.orv "CAFE zoe" =>      4  3 A  Who wrote Café?\n
0 search bank.orv cafe --level 1 => There is no such question.\n
0 search bank.orv cafe four five => There is no such question.\n
0 list bank.orv --level 1 =>      1  1 B  1 one?\n     7  1 B  3 one?\n    10  1 B  4 one?\n
1 set bank.orv 5 "question=who wrote café?" => 5: the same question stands in
1 set bank.orv 5 B=ONE => question 5: options A and B are equal\n
1 set bank.orv 5 why=x => "why=x" is not of the form field=text
1 set bank.orv 5 A => "A" is not of the form field=text
1 delete bank.orv 5 => --yes would delete question 5, "2 two?"
0 delete bank.orv 5 --yes => Question 5, "2 two?", was deleted.\n
1 show bank.orv 5 => bank.orv has no question 5\n
2 lst => "lst" is no subcommand of orvbank; there are create, check, import, 
0 stats --help => --from SOURCE
0 --version => orvbank 
2 admin bank.orv ad anna => "ad" is no subcommand of admin; there are add, password, rename, remove, list. Did you mean add?\n
0 sheet bank.orv one.pdf --count 1 => 3 questions
2 search bank.orv => WORDS is required
2 import bank.orv data --update --replace => excludes
2 import bank.orv data --update --skip-known => excludes
2 export bank.orv all.csv --format gfit => "gfit" is no format; there are csv, gift, aiken, text. Did you mean gift?\n
0 sheet bank.orv quiz.pdf --count 2 => 6 questions went into quiz.pdf.\n
0 prompts bank.orv export prompts.txt
0 prompts bank.orv import prompts.txt => has taken in 0 prompts.\n
0 prompts bank.orv import prompts.txt --replace => 1 prompt in place of those it had.\n
0 create empty.orv => with 0 questions and 0 prompts.\n
0 prompts empty.orv export none.txt
1 prompts bank.orv import twice.txt => twice.txt:2: the same prompt stands in twice.txt:1\n
1 prompts bank.orv import none.txt => none.txt: there are no prompts in it\n
1 sheet empty.orv none.pdf => empty.orv has no questions for a sheet\n
0 import empty.orv data => has taken in 15 questions and 1 prompt.\n
0 import empty.orv data --replace --shuffle => 15 questions and 1 prompt in place of those it had.\n
?empty.orv select sum(correct_answer = 'the two') || (sum(answer2 = 'the two') < 15) from questions => 151
! update questions set b = 5
0 export bank.orv all.csv
0 import empty.orv all.csv --replace --shuffle
)");
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
    const QString tallies = "select sum(a) || (select count(*) from users) from questions => ";
    follow(R"(
0 backup bank.orv copy.orv => copy.orv is a sound copy of bank.orv.\n
! update questions set a = 3; delete from users
0 restore bank.orv copy.orv => What it held is kept in bank.orv.before-restore.\n
)" + ("? " + tallies + "151\n?bank.orv.before-restore " + tallies + "450"));
    write("bank.orv", std::string(5000, 'x'));
    follow("0 restore bank.orv copy.orv => bank.orv.before-restore-2\n? " + tallies + "151");
    EXPECT_EQ(content("bank.orv.before-restore-2"), std::string(5000, 'x'));
    write("short.orv", content("copy.orv").substr(0, 9000));
    follow(R"(
! update questions set a = 3
0 backup bank.orv gift.orv --for-others
1 restore bank.orv bank.orv => bank.orv is that file itself\n
1 restore bank.orv data/prompts.txt => data/prompts.txt
1 restore bank.orv none.orv => none.orv
1 restore bank.orv short.orv => short.orv
1 backup short.orv other.orv => the file is damaged
)" + ("? " + tallies + "451\n?gift.orv " + tallies + "150"));
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
    write("bad.csv", "question,A,B,C,D,right,level\nWho?,a,b,c,,A,1\n");
    follow(R"(
! update questions set a = 2, b = 4 where question_id = 4
! update questions set d = 0 where question_id = 7
0 stats bank.orv --from data => level 1                       5          1          4       75 %\n
0 stats bank.orv --from data =>   words                       5          1          4       75 %\n
0 stats bank.orv => \n  number level  plays  right  question\n       4     1      4   75 %  2 one?\n
1 stats bank.orv --from bad.csv => bad.csv:2:12: option D is missing, four are needed\n
! update questions set a = 2000000000000000000, b = 2000000000000000000
! update questions set a = 1, b = 1, c = 4 where question_id = 5
! update questions set a = 1, b = question_id / 2 where question_id in (6, 8)
)");
    const std::string header = "number,level,plays,right,question\r\n";
    EXPECT_EQ(run("stats bank.orv --csv --hardest").second,
              header + "5,2,3,0,2 two?\r\n8,2,3,3,3 two?\r\n6,3,2,2,2 three?\r\n");
    EXPECT_EQ(run("stats bank.orv --csv --easiest").second,
              header + "8,2,3,3,3 two?\r\n6,3,2,2,2 three?\r\n5,2,3,0,2 two?\r\n");
    expect("stats bank.orv --reset", 0,
           "The tallies of all questions are 1 again, as before the first game.\n");
    EXPECT_EQ(run("stats bank.orv --csv").second, header);
}

} // namespace
