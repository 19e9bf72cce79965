#include "bank_test.h"

#include "bank/create.h"
#include "bank/formats.h"
#include "bank/text.h"

#include <random>

namespace {

class Exchange : public BankTest
{
protected:
    /// All texts of all rows, and their tallies.
    [[nodiscard]] std::string rows(const std::string& file, bool withTallies) const
    {
        const std::string texts = "question||'|'||answer1||'|'||answer2||'|'||answer3||'|'||answer4||'|'||"
                                  "correct_answer||'|'||Level";
        return value("select group_concat(" + texts + (withTallies ? "||a||b||c||d" : "") +
                         ", '|') from (select * from questions order by Level, question_id)",
                     file);
    }
};

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

TEST_F(Exchange, GivesBackEveryRow)
{
    bank::Progress none;
    bank::createDatabase(path("all.orv"), randomBank(10'000), bank::Account{"owner", "secret"}, none);
    for (const std::string format : {"csv", "gift", "txt", "aiken"}) {
        // Where the engine does not number the questions, orvbank does.
        exec("create table unnumbered as select * from questions where false; drop table questions;"
             "alter table unnumbered rename to questions");
        for (const std::string level : {"1", "2", "3"}) {
            const std::string file = "questions" + level + '.' + format;
            expect("export all.orv " + file + " --level " + level, 0, "questions went into " + file + ".\n");
            expect("import bank.orv " + file + " --level " + level, 0, "bank.orv has taken in ");
        }
        EXPECT_TRUE(rows("bank.orv", format == "csv") == rows("all.orv", format == "csv")) << format;
    }
    EXPECT_EQ(value("select max(question_id) from questions"), "10000");
}

TEST_F(Exchange, TellsWhatAFormatCannotHold)
{
    follow(R"(
! update questions set a = 2 where question_id = 4
! update questions set question = 'C. V. Raman?' where question_id = 7
! update questions set answer2 = '=B1', correct_answer = '=B1' where question_id = 10
0 export bank.orv a.gift => a.gift: warning: how often the options were chosen is left out, only CSV holds it\n15
0 export bank.orv b.gift --level 1 => 5 questions went into b.gift.\n
0 export bank.orv a.csv => question 10: warning: a text begins with =, +, - or @, which a spreadsheet may
0 export bank.orv b.csv => formula; so it is in 1 of these questions\n15 questions went
1 export bank.orv a.aiken => Aiken holds no levels: export one at a time with --level\n
0 export bank.orv a.aiken --level 1 => question 7: warning: is left out, Aiken would take its text for an option
0 export bank.orv b.aiken --level 1 => the level is left out, Aiken does not hold it; import with --level\n4 questions
1 export bank.orv - => give --format, standard output has no name that tells it\n
0 export bank.orv - --format TEXT --level 2 => level: 2\nquestion: 1 two?\nA: one\nB: the two\nC: three\n
1 export bank.orv a.csv => a.csv exists already and is left as it is\n
1 export bank.orv a.doc => a.doc: the name tells no format; end it in .csv, .gift, .aiken or .txt
! update questions set correct_answer = 'five' where question_id = 2
1 export bank.orv c.gift => options\nNothing was exported: only CSV holds questions
0 export bank.orv c.csv => 2: warning: "right" is left empty, the right answer "five" is none
1 import bank.orv - => give --format, standard input has no name that tells it\n
)");
}

TEST_F(Exchange, ReadsWhatOthersWriteOrLeavesTheFileAlone)
{
    const std::string before = content("bank.orv");
    const QDir samples(ORVANTA_SAMPLES);
    const auto outcomes = samples.entryInfoList({"*.rows", "*.told"});
    ASSERT_EQ(outcomes.size(), 20);
    for (const QFileInfo& expected : outcomes) {
        const std::string file = expected.completeBaseName().toStdString();
        const std::string wanted = contentOf(expected.filePath().toStdString());
        write(file, contentOf(samples.filePath(file.c_str()).toStdString()));
        write("bank.orv", before);
        if (expected.suffix() == "rows") {
            expect("import bank.orv " + file + " --replace --level 1", 0, "in place of those it had");
            EXPECT_EQ(rows("bank.orv", false) + '\n', wanted) << file;
        } else {
            const std::string line = "import bank.orv " + file + (file == "lines.aiken" ? " --level 1" : "");
            EXPECT_EQ(run(line), std::pair(1, wanted));
            EXPECT_TRUE(content("bank.orv") == before) << file;
        }
    }
    expect("import bank.orv lines.aiken", 1, "lines.aiken: Aiken holds no levels; --level gives one\n");
    write("bank.orv", before);
    expect("import bank.orv web.gift --dry-run --replace", 0,
           "would take in 2 questions in place of those it had.\n");
    expect("import bank.orv web.gift --dry-run", 0, "would take in 2 questions.\n");
    EXPECT_TRUE(content("bank.orv") == before);
}

} // namespace
