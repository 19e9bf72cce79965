#include "folder.h"

#include "bank/create.h"
#include "bank/formats.h"
#include "bank/text.h"

#include <QStringEncoder>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace {

QString randomText(std::mt19937& random, int limit)
{
    const QString harmful = "\"\"'',,;;\\\\~=#{}:%/$[]<>-+ nA.)|  ";
    QString text;
    while (bank::length(text) < 1 + static_cast<int>(random() % limit) || text.trimmed().isEmpty()) {
        const char32_t ranges[] = {0x20,  0x7e,  0xa1,  0x24f, 0x300,   0x36f,
                                   0x900, 0x97f, 0x600, 0x6ff, 0x1f300, 0x1f6ff};
        const auto range = 2 * (random() % 6);
        const auto c = static_cast<char32_t>(ranges[range] + random() % (ranges[range + 1] - ranges[range]));
        text += random() % 3 == 0 ? QString(harmful[random() % harmful.size()]) : QString::fromUcs4(&c, 1);
    }
    return text.trimmed();
}

bank::Bank randomBank(std::size_t count)
{
    std::mt19937 random(7); // NOLINT: the same questions in every run
    bank::Bank bank;
    while (bank.questions.size() < count) {
        bank::Question question;
        question.level = QString::number(1 + random() % 3);
        question.text = randomText(random, 90) + QString::number(bank.questions.size());
        for (std::size_t i = 0; i < 4; ++i) {
            question.options.at(i) = randomText(random, 25);
            question.tallies.at(i) = 1 + random() % 3;
        }
        question.right = QString("ABCD").mid(random() % 4, 1);
        if (bank::Complaints ignored;
            bank::checkQuestion(question, bank::Texts::Played, ignored) && bank::aikenHolds(question))
            bank.questions.push_back(question);
    }
    return bank;
}

/// The text as spreadsheets save "Unicode".
std::string utf16(const char* text)
{
    return QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom)
        .encode(QString(text))
        .
        operator QByteArray()
        .toStdString();
}

std::string rows(const Folder& folder, const std::string& file, bool withTallies)
{
    SQLite::Database database(folder.path(file));
    std::string all;
    SQLite::Statement row(database,
                          "select question_id, question, answer1, answer2, answer3, answer4, correct_answer, "
                          "Level, a, b, c, d from questions order by Level, question_id");
    while (row.executeStep())
        for (int i = 1; i < (withTallies ? 12 : 8); ++i)
            all += row.getColumn(i).getString() + '\n';
    return all;
}

TEST(Exchange, GivesBackEveryRow)
{
    const Folder folder;
    bank::Progress none;
    bank::createDatabase(folder.path("bank.orv"), randomBank(10'000), bank::Account{"owner", "secret"}, none);
    ASSERT_EQ(folder.run({"create", "empty.orv", "--from", "data"}).first, 0);
    for (const std::string format : {"csv", "gift", "txt", "aiken"}) {
        folder.write("copy.orv", folder.content("empty.orv"));
        SQLite::Database(folder.path("copy.orv"), SQLite::OPEN_READWRITE).exec("delete from questions");
        for (const std::string level : {"1", "2", "3"}) {
            const std::string file = "questions" + level + '.' + format;
            const auto exported = folder.run({"export", "bank.orv", file, "--level", level});
            ASSERT_EQ(exported.first, 0) << exported.second;
            const auto imported = folder.run({"import", "copy.orv", file, "--level", level});
            ASSERT_EQ(imported.first, 0) << imported.second.substr(0, 1000);
        }
        EXPECT_TRUE(rows(folder, "copy.orv", format == "csv") == rows(folder, "bank.orv", format == "csv"))
            << format;
    }
    EXPECT_EQ(folder.run({"export", "bank.orv", "all.aiken"}),
              std::pair(1, std::string("Aiken holds no levels: export one at a time with --level\n")));
}

TEST(Exchange, TakesInWhatOtherProgramsWrite)
{
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"sheet.csv",
         "\xEF\xBB\xBFNr;Level;Question;A;B;C;D;Right;Topic\r\n1;2;\"Who said \"\"a; b\"\"?\";x;\"y,\";z;\" "
         "w \";D;\r\n;;;;;;;;\r\n",
         "Who said \"a; b\"?|x|y,|z|w|w|2"},
        {"sheet.tsv",
         "correct_answer\tquestion\tanswer1\tanswer2\tanswer3\tanswer4\tlevel\ta\nZ\tWho "
         "\"he\"?\tx\ty\tz\tw\t1\t9",
         "Who \"he\"?|x|y|z|w|z|1"},
        {"moodle.gift",
         "// by hand\n$CATEGORY: $course$/top/Level 3\n\n::one \\: ::[html]What is 1 \\= 1 \n in {~x # "
         "no\n~%y\n=z\\~#yes ~ w "
         "####general} words?\n",
         "What is 1 = 1 in ____ words?|x|%y|z~|w|z~|3"},
        {"old.csv",
         "\"sep=;\"\n;;\n\nDifficulty;Question;Option A;Option B;Option C;option d;Correct answer\n"
         "Hard;Who?;x;y;z;w;y\n",
         "Who?|x|y|z|w|y|3"},
        {"numbered.csv",
         "Question Text,Answer 1,Answer 2,Answer 3,Answer 4,Correct,Level\nWho?,x,y,z,w,d,Level 2\n",
         "Who?|x|y|z|w|w|2"},
        {"saved.txt", utf16("question\tA\tB\tC\tD\tright\nWhé?\tx\ty\tz\tw\tb\n"), "Whé?|x|y|z|w|y|1"},
        {"web.gift",
         "$CATEGORY: level 2\n[html]<p>Who wrote <b>Emma</b>&nbsp;?</p>{~%0%[html]<p>x</p> ~%100%y &amp; z "
         "~<br>v "
         "~w}\n::t::Two?{=5~6~7~8}\n",
         "Who wrote Emma ?|x|y & z|v|w|y & z|2|Two?|5|6|7|8|5|2"},
        {"list.aiken", "Which of\nthem?\nA) x\nB) y\nC. z\nD. w\nANSWER: b\n", "Which of them?|x|y|z|w|y|1"},
    };
    for (const auto& [file, content, expected] : cases) {
        const Folder folder;
        ASSERT_EQ(folder.run({"create", "bank.orv", "--from", "data"}).first, 0);
        folder.write(file, content);
        const auto [code, printed] = folder.run({"import", "bank.orv", file, "--replace", "--level", "1"});
        EXPECT_EQ(code, 0) << printed;
        std::string row = rows(folder, "bank.orv", false);
        std::replace(row.begin(), row.end(), '\n', '|');
        EXPECT_EQ(row, expected + '|');
    }
}

TEST(Exchange, LeavesTheFileAloneUnlessAllIsWell)
{
    const std::string header = "question,A,B,C,D,right,level\n";
    const std::string wanted = "; a bank holds only questions with four options of which one is right\n";
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"a.csv", header + "\"Wh\"\"o\nis?\",x,y,z,w,A,1\nWho?,x,y,X,w,E,9\n",
         "a.csv:2:1: question holds a line break, but must be one line\n"
         "a.csv:4:16: level \"9\" is none of 1, 2, 3\n"
         "a.csv:4:14: right \"E\" is none of A, B, C, D\na.csv:4:10: options A and C are equal\n"},
        {"a.csv", header + "Who?,x,y,z,w,A,1,,or not\n",
         "a.csv:2:1: the row has 9 cells, the first row has 7; a text with a separator in it must stand in "
         "quotation marks\n"},
        {"a.csv", header + "Who?,x,y,z,,A,1,\n", "a.csv:2:12: option D is missing, four are needed\n"},
        {"a.csv", header + "Who?,x,y,\"z\n,w,A,1\n",
         "a.csv:2:10: the quotation mark that opens here is never closed\n"},
        {"a.csv", "question,option a,option b,option c,option d,level,correct answer\nWho?,B,A,C,D,1,a\n",
         "a.csv:2:16: \"a\" may be the letter or the text of the right option; call the column \"right\" or "
         "\"correct_answer\"\n"},
        {"a.csv", header, "a.csv: there are no questions in it\n"},
        {"a.csv", "tally a," + header + "9999999999,Who?,x,y,z,w,A,1\n",
         "a.csv:2:1: the tally \"9999999999\" is no whole number from 0 to 1000000000\n"},
        {"a.csv", "question,A,b,C,why\n",
         "a.csv:1: the first row must name the columns; missing: D, right, level (or "
         "give --level)\n"},
        {"a.csv", header + "Wh\xE9?,x,y,z,w,A,1\n",
         "a.csv:2:1: question holds broken UTF-8; save the text as UTF-8\n"},
        {"a.csv", header + "3 ONE?,x,y,z,w,A,1\n",
         "a.csv:2: the same question stands in bank.orv: question 7\n"},
        {"a.gift", "What?{=x ~y ~z}\n\nThis?\n",
         "a.gift:1:6: 3 options of which 1 are right; a bank holds only questions "
         "with four options of which one is right\na.gift:3:1: there are no answers in braces\n"},
        {"a.gift", "$CATEGORY: a/level 7\nSun?{TRUE}\n\nOne?{=1~2~3~4} or {=5~6~7~8}\n\nE?{}\n\nN?{#3:1}\n",
         "a.gift:2:5: a true-false question" + wanted +
             "a.gift:4:19: a second pair of braces; a blank line must part "
             "two questions\na.gift:6:3: an essay question" +
             wanted + "a.gift:8:3: a numerical question" + wanted},
        {"a.gift", "M?{=a -> b =c -> d}\n\nS?{=a =b}\n\nW?{~%50%a ~%50%b ~c ~d}\n\nP?{a ~b =c ~d ~e}\n",
         "a.gift:1:3: a matching question" + wanted + "a.gift:3:3: a short-answer question" + wanted +
             "a.gift:5:5: an option is right or wrong, a bank holds no weights but 100 and 0\n"
             "a.gift:7:4: an option must begin with \"=\" or \"~\"\n"},
        {"a.gift", "$CATEGORY: a/level 7\n[html]One?{=1~2~3~4}\nTwo?{=1~2~3~<img src\\=x>}\n",
         "a.gift:1:20: level \"7\" is none of 1, 2, 3\n"
         "a.gift:3:13: the HTML in \"<img src=x>\" cannot be plain text\n"},
        {"a.gift", "$CATEGORY: A-levels\nOne?{=1~2~3~4}\n",
         "a.gift:2:1: level is missing\na.gift: --level gives a level to questions without\n"},
        {"a.gift", "What?{=x ~y ~z ~w}\n",
         "a.gift:1:1: level is missing\na.gift: --level gives a level to questions without\n"},
        {"a.aiken", "What?\nA. x\nB. y\nANSWER: A\n",
         "a.aiken:4:1: there are 2 options above this line, four are needed\n"},
        {"a.aiken",
         "Q?\nA. x\nC. y\nANSWER: A\n\nANSWER: A\nQ?\nA. x\nB. y\nC. z\nD. w\nE. v\nANSWER: A\nQ?\nA. "
         "x\nhm\nANSWER: A\nQ?",
         "a.aiken:3:1: the option should be B\na.aiken:6:1: there is no question above this line\n"
         "a.aiken:12:1: a question has four options, this is one more\n"
         "a.aiken:16:1: the line is neither an option nor that of the answer\n"
         "a.aiken:18:1: the last question has no line \"ANSWER: \"\n"},
        {"a.doc", "",
         "a.doc: the name tells no format; end it in .csv, .gift, .aiken or .txt, or give --format\n"},
    };
    const Folder folder;
    ASSERT_EQ(folder.run({"create", "bank.orv", "--from", "data"}).first, 0);
    const std::string before = folder.content("bank.orv");
    for (const auto& [file, content, expected] : cases) {
        folder.write(file, content);
        std::vector<std::string> arguments{"import", "bank.orv", file};
        if (file == "a.aiken")
            arguments.insert(arguments.end(), {"--level", "1"});
        EXPECT_EQ(folder.run(arguments), std::pair(1, expected));
        EXPECT_TRUE(folder.content("bank.orv") == before) << content;
    }
    folder.write("good.csv", header + "Who?,x,y,z,w,A,1\n");
    EXPECT_EQ(folder.run({"import", "bank.orv", "good.csv", "--dry-run", "--replace"}).first, 0);
    EXPECT_EQ(folder.run({"import", "bank.orv", "good.csv", "--dry-run"}).first, 0);
    EXPECT_TRUE(folder.content("bank.orv") == before);
}

} // namespace
