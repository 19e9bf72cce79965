#include "folder.h"

#include "bank/source.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(Source, ComplainsAboutEveryFaultyLine)
{
    const std::tuple<qsizetype, std::string, std::string> cases[] = {
        {7, "# D", ":1: option D is missing, four are needed"},
        {9, "why: because\nnothing", ":10:1: the line is not of the form \"name: text\""},
        {9, "why: because\nA: 1\nB: 2", ":10:1: A is given twice; a blank line must part two questions"},
        {1, "level: 4", ":1:8: level \"4\" is none of 1, 2, 3"},
        {2, "topic:", ":2:7: topic is missing"},
        {8, "right: b", ":8:8: right \"b\" is none of A, B, C, D"},
        {3, "question: " + std::string(101, 'x'), ":3:11: question has 101 characters, at most 100 fit"},
        {6, "  C:  " + std::string(26, 'x'), ":6:7: option C has 26 characters, at most 25 fit"},
        {7, "D: THE  two", ":7:4: options B and D are equal"},
        {3, "question: 5  ONE?", ":1: the same question stands in data/questions-1.txt:121"},
        {9, "why: be\u2028cause", ":9:6: why holds the control character U+2028"},
    };
    for (const auto& [line, text, expected] : cases) {
        const Folder folder;
        folder.write("data/questions-9.txt", record("1", "Which word?", line, text));
        EXPECT_EQ(folder.run({"create", "orv.orv", "--from", "data"}),
                  std::pair(1, "data/questions-9.txt" + expected + '\n'))
            << text;
    }
}

TEST(Source, ComplainsAboutPromptsAndAboutTooLittle)
{
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"prompts.txt", std::string(101, 'x'), "/prompts.txt:1: prompt has 101 characters, at most 100 fit"},
        {"prompts.txt", "Shall I?\n shall i?",
         "/prompts.txt:2: the same prompt stands in data/prompts.txt:1"},
        {"questions-1.txt", record("1", "Which?"),
         ": level 1 has 1 questions, a game needs 5\ndata: level 2 has 0 questions, a game needs 5\n"
         "data: level 3 has 0 questions, a game needs 5"},
    };
    for (const auto& [file, content, expected] : cases) {
        const Folder folder;
        folder.write("data/" + file, content);
        EXPECT_EQ(folder.run({"create", "orv.orv", "--from", "data"}).second, "data" + expected + '\n')
            << content;
    }
}

TEST(Source, AcceptsWhatEditorsLeaveInFiles)
{
    const std::string longest = QString("😀").repeated(100).toStdString();
    const Folder folder;
    folder.write("data/questions-9.txt",
                 "\xEF\xBB\xBFright: D\r\nlevel:2\r\n# a comment inside\r\n  topic : words \r\nquestion: " +
                     longest + "\r\nA: # 1\r\nB: B\r\nC: 10:30\r\nD: 'four'\r\nwhy: x\r\n \r\n");
    bank::Progress none;
    bank::Intake intake(bank::Texts::Reviewed, {}, none);
    bank::readFolder(folder.path("data"), intake);
    EXPECT_EQ(intake.complaints.lines(), QStringList());
    const bank::Question question = intake.bank.questions.at(15);
    EXPECT_EQ(question.text.toStdString(), longest);
    EXPECT_EQ(question.options[2] + question.rightOption() + question.level, u"10:30'four'2"_qs);
}

} // namespace
