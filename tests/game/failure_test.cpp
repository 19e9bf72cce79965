#include "show.h"

#include <QFile>

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, AGameThatCannotStartSaysWhyAndLeavesToTheThankYouScreen)
{
    // Each is found before those that were done earlier.
    const std::pair<const char*, const char*> harms[] = {
        {"update questions set Level = '4' where Level = '1'", "level 1"},
        {"alter table locking rename to l", "locking"},
        {"alter table questions rename column answer3 to third", "answer3"},
        {"alter table questions rename to q", "questions"},
        {"", "missing"},
    };
    stand.dialogs.expectInput("Please Enter your First Name ", "Asha");
    for (const auto& [harm, reason] : harms) {
        bank.execute(harm);
        if (!*harm)
            QFile::remove(bank.path());
        stand.dialogs.expectNoticeWith({bank.path(), reason});
        expectFarewell();
        stand.screens.show("orv");
        EXPECT_EQ(stand.open(), "thank") << reason;
        stand.screens.close("thank");
    }
    EXPECT_FALSE(QFile::exists(bank.path()));
}

TEST_F(ShowTest, AGameThatCannotGoOnKeepsWhatWasWonSoFar)
{
    const auto expectEnd = [this](const char* control, const char* reason, const char* amount) {
        stand.dialogs.expectNoticeWith({bank.path(), reason});
        stand.click("orv", control);
        EXPECT_EQ(shown("question"), QString("Total Prize Money Rs. ") + amount);
        EXPECT_FALSE(visible("cmdok"));
        EXPECT_EQ(focused(), "cmdokquit");
        expectFarewell();
        stand.click("orv", "cmdokquit");
        EXPECT_EQ(stand.open(), "thank");
    };
    bank.execute("delete from questions where question_id in (23, 24, 25)");
    start();
    answerUpTo(6);
    answerRight();
    expectEnd("cmdok", "level 2: a game asks five of them, and it holds 2", "40,000");
    start();
    answerUpTo(3);
    bank.execute("drop table locking");
    expectEnd("option3", "locking", "3,000");
}

TEST_F(ShowTest, QuestionsWithoutANumberOfTheirOwnAreAskedOnceAndCountedApart)
{
    bank.execute("create table q as select * from questions; drop table questions;"
                 "alter table q rename to questions");
    for (const char* id : {"null", "'seven'", "7"}) {
        bank.execute(std::string("update questions set c = 1, question_id = ") + id);
        start();
        answerUpTo(14);
        answerRight();
        EXPECT_EQ(bank.value("select count(*) || ' ' || sum(c) from questions where c = 2"), "15 30") << id;
        expectFarewell();
        stand.form("orv").close();
    }
}

TEST_F(ShowTest, WithoutPromptMessagesTheHostUsesItsOwnAndSaysSoOnce)
{
    bank.execute("delete from locking");
    start();
    stand.dialogs.expectNoticeWith({bank.path(), "no prompt message"});
    for (const bool lock : {false, true}) {
        stand.dialogs.expectConfirm("Asha shall I lock your answer?", lock);
        stand.click("orv", "option3");
    }
}

TEST_F(ShowTest, ATallyThatCannotBeWrittenIsToldAndTheVerdictStands)
{
    bank.execute("create trigger stop before update on questions begin select raise(abort, 'no'); end");
    start();
    for (const bool lock : {false, true}) {
        stand.dialogs.expectConfirm("Asha shall I lock it?", lock);
        stand.dialogs.expectNoticeWith({bank.path()});
        stand.click("orv", "option3");
    }
    stand.clock.advance(900ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    stand.click("orv", "cmdok");
    const std::string question = shown("question").toStdString();
    bank.execute("drop trigger stop; delete from questions where question = '" + question + "'");
    stand.dialogs.expectConfirm("Asha shall I lock it?", false);
    stand.dialogs.expectNoticeWith({bank.path(), "removed this question"});
    stand.click("orv", "option3");
    stand.click("orv", "lifeline1");
    answerRight();
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 2,000") << "told once";
}

} // namespace game
