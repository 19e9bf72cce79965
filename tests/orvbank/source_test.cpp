#include "folder.h"

#include "bank/failure.h"
#include "bank/source.h"

#include <gtest/gtest.h>

namespace {

/// What readSource complains about, with the path of the folder left out.
std::string complaints(const Folder& folder)
{
    try {
        (void)bank::readSource(folder.path("data"));
    } catch (const bank::Failure& failure) {
        const QString prefix = QString::fromStdString(folder.path("data"));
        return QString::fromUtf8(failure.what()).remove(prefix).toStdString();
    }
    return "";
}

std::string repeated(const char* character, int times)
{
    return QString::fromUtf8(character).repeated(times).toStdString();
}

TEST(Source, ComplainsAboutEveryFaultyLine)
{
    struct Case
    {
        std::size_t line;
        std::string text;
        std::string expected; ///< after the name of the file
    };
    const Case cases[] = {
        {1, "# level", ":2: level is missing"},
        {3, "question:  ", ":3: question is missing"},
        {9, "# why", ":1: why is missing"},
        {7, "# D", ":1: option D is missing, four are needed"},
        {9, "why: because\nE: five", ":10: there is no field \"E\""},
        {9, "why: because\nnothing", ":10: the line is not of the form \"name: text\""},
        {9, "why: because\nA: 1\nB: 2", ":10: A is given twice; a blank line must part two questions"},
        {1, "level: 4", ":1: level \"4\" is none of 1, 2, 3"},
        {8, "right: E", ":8: right \"E\" is none of A, B, C, D"},
        {8, "right: AB", ":8: right \"AB\" is none of A, B, C, D"},
        {8, "right: b", ":8: right \"b\" is none of A, B, C, D"},
        {3, "question: " + repeated("é", 101), ":3: question has 101 characters, at most 100 fit"},
        {6, "C: " + repeated("é", 26), ":6: option C has 26 characters, at most 25 fit"},
        {7, "D: THE  two", ":7: options B and D are equal"},
        {3, "question: QUESTION 1  of 3?", ":1: the same question stands in /questions-1.txt:101"},
        {4, "A: on\xFF", ":4: the line is not valid UTF-8"},
        {4, "A: caf\xC3", ":4: the line is not valid UTF-8"},
        {2, "topic: t\xED\xA0\x80", ":2: the line is not valid UTF-8"},
        {5, "B: two\twords", ":5: control character U+0009"},
        {9, "why: be\u2028cause", ":9: control character U+2028"},
    };
    for (const Case& c : cases) {
        const Folder folder;
        folder.write("data/questions-9.txt", record("1", "Which word?", c.line, c.text));
        EXPECT_EQ(complaints(folder), "/questions-9.txt" + c.expected) << c.text;
    }
}

TEST(Source, ComplainsAboutPromptsAndAboutTooLittle)
{
    struct Case
    {
        std::string file;
        std::string content;
        std::string expected;
    };
    const Case cases[] = {
        {"prompts.txt", "Shall I?\n\n" + repeated("x", 101),
         "/prompts.txt:3: prompt has 101 characters, at most 100 fit"},
        {"prompts.txt", "Shall I?\nDo I?\n shall i?",
         "/prompts.txt:3: the same prompt stands in /prompts.txt:1"},
        {"prompts.txt", "# none\n\n", ": there is no prompt, a game needs at least one"},
        {"questions-1.txt", record("1", "Which?"),
         ": level 1 has 1 questions, a game needs 5\n: level 2 has 0 questions, a game needs 5\n"
         ": level 3 has 0 questions, a game needs 5"},
    };
    for (const Case& c : cases) {
        const Folder folder;
        folder.write("data/" + c.file, c.content);
        EXPECT_EQ(complaints(folder), c.expected) << c.content;
    }
    const Folder folder;
    std::filesystem::remove(folder.path("data/prompts.txt"));
    EXPECT_EQ(complaints(folder), "/prompts.txt cannot be read: No such file or directory");
}

TEST(Source, AcceptsWhatEditorsLeaveInFiles)
{
    const std::string longest = repeated("😀", 100);
    const Folder folder;
    folder.write(
        "data/questions-9.txt",
        "\xEF\xBB\xBFright: D\r\nlevel:2\r\n# a comment inside\r\n  topic : words \r\nquestion: " + longest +
            "\r\nA: # 1\r\nB: " + repeated("é", 25) + "\r\nC: 10:30\r\nD: 'four'\r\nwhy: x\r\n \r\n");
    const bank::Bank bank = bank::readSource(folder.path("data"));
    ASSERT_EQ(bank.questions.size(), 16U);
    const bank::Question& question = bank.questions.back();
    EXPECT_EQ(question.level, QStringLiteral("2"));
    EXPECT_EQ(question.text.toStdString(), longest);
    EXPECT_EQ(question.options[2], QStringLiteral("10:30"));
    EXPECT_EQ(question.rightOption(), QStringLiteral("'four'"));
}

} // namespace
