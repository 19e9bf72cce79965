#include "show.h"

#include <QFile>

namespace game {

TEST_F(ShowTest, AGameThatCannotStartSaysWhyAndLeavesToTheThankYouScreen)
{
    // Each is found before those that were done earlier.
    const std::pair<const char*, const char*> harms[] = {
        {"update questions set Level = '4' where Level = '1'",
         "orv.orv has too few questions of level 1: a game asks five of them, and it holds 0. Add"},
        {"alter table locking rename to l",
         "\"orv.orv\" cannot be read: it has no usable table named locking. Put"},
        {"alter table questions rename column answer3 to third",
         "cannot be read: its table questions has no field named answer3. Put"},
        {"alter table questions rename to q", "cannot be read: it has no usable table named questions. Put"},
        {"", "cannot be opened: the file is missing. Put"},
    };
    for (const auto& [harm, reason] : harms) {
        bank.execute(harm);
        if (!*harm)
            QFile::remove(bank.path());
        const std::string told = after("show orv");
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        EXPECT_TRUE(told.ends_with(thanks)) << told;
        EXPECT_EQ(open(), "thank") << reason;
        run("close thank");
    }
    EXPECT_FALSE(QFile::exists(bank.path()));
}

TEST_F(ShowTest, AGameThatCannotGoOnKeepsWhatWasWonSoFar)
{
    const std::tuple<QString, const char*, const char*, const char*> harms[] = {
        {"!delete from questions where question_id in (23, 24, 25); show orv; " + answered(6) + right,
         "cmdok", "orv.orv has too few questions of level 2: a game asks five of them, and it holds 2. Add",
         "40,000"},
        {"show orv; " + answered(3) + "!drop table locking", "option3",
         "\"orv.orv\" cannot be read: it has no usable table named locking. Put", "3,000"},
    };
    for (const auto& [steps, last, reason, amount] : harms) {
        after(steps);
        const std::string told = after(last);
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        EXPECT_EQ(shows("announcement focus"), std::string("Total Prize Money Rs. ") + amount + "|cmdokquit");
        EXPECT_TRUE(hidden("cmdok"));
        EXPECT_EQ(after("cmdokquit"), farewell);
        EXPECT_EQ(open(), "thank");
    }
}

TEST_F(ShowTest, QuestionsWithoutANumberOfTheirOwnAreAskedOnceAndCountedApart)
{
    bank.execute(
        "create table q as select * from questions; drop table questions;alter table q rename to questions");
    for (const char* id : {"null", "'seven'", "7"}) {
        bank.execute(std::string("update questions set c = 1, question_id = ") + id);
        after("show orv; " + answered(14) + right);
        EXPECT_EQ(bank.value("select count(*) || ' ' || sum(c) from questions where c = 2"), "15 30") << id;
        after("close orv");
    }
}

TEST_F(ShowTest, WithoutPromptMessagesTheHostUsesItsOwnAndSaysSoOnce)
{
    after("!delete from locking; show orv");
    const std::string own =
        "Stop; Speak Asha,shall I lock your answer?; Orvanta: Asha shall I lock your answer?";
    const std::string told = after("option3:n");
    EXPECT_TRUE(told.starts_with(
        "Orvanta: (i) The question bank orv.orv has no prompt message, so the host makes do"));
    EXPECT_TRUE(told.ends_with("; " + own)) << told;
    EXPECT_EQ(after("option3:n"), own);
}

TEST_F(ShowTest, ATallyThatCannotBeWrittenIsToldAndTheVerdictStands)
{
    const std::string lock = "Stop; Speak Asha,shall I lock it?; Orvanta: Asha shall I lock it?";
    const std::string verdict = "; Stop; Play Congratulate; Speak correct answer";
    const std::string refused =
        "; Orvanta: (!) The question bank \"orv.orv\" cannot be changed: it does not accept "
        "one of the values. Change the values and try again. (no)";
    after("!create trigger stop before update on questions begin select raise(abort, 'no');end; show orv");
    EXPECT_EQ(after("option3:n"), lock + refused);
    EXPECT_EQ(after("option3:y"), lock + verdict + refused);
    after("900ms; cmdok");
    bank.execute("drop trigger stop; delete from questions where question = '" + shows("question") + "'");
    const std::string told = after("option3:n");
    EXPECT_TRUE(told.starts_with(lock + "; Orvanta: (i) Another program has just removed this question"))
        << told;
    after("lifeline1");
    EXPECT_EQ(after("option3:y"), lock + verdict) << "told once";
    after("900ms");
    EXPECT_EQ(shows("question"), "Total Prize Money Rs. 2,000");
}

} // namespace game
