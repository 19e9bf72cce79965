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
    desk.dialogs.expectInput("Please Enter your First Name ", "Asha");
    for (const auto& [harm, reason] : harms) {
        bank.execute(harm);
        if (!*harm)
            QFile::remove(bank.path());
        desk.dialogs.expectNoticeWith({bank.path(), reason});
        expectFarewell();
        desk.screens.show("orv");
        EXPECT_EQ(desk.open(), "thank") << reason;
        desk.screens.close("thank");
    }
    EXPECT_FALSE(QFile::exists(bank.path()));
}

TEST_F(ShowTest, AGameThatCannotGoOnKeepsWhatWasWonSoFar)
{
    const auto expectEnd = [this](const char* control, const char* reason, const char* amount) {
        desk.dialogs.expectNoticeWith({bank.path(), reason});
        desk.click("orv", control);
        EXPECT_EQ(shown("question"), QString("Total Prize Money Rs. ") + amount);
        EXPECT_FALSE(visible("cmdok"));
        EXPECT_EQ(focused(), "cmdokquit");
        expectFarewell();
        desk.click("orv", "cmdokquit");
        EXPECT_EQ(desk.open(), "thank");
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
        desk.form("orv").close();
    }
}

TEST_F(ShowTest, WithoutPromptMessagesTheHostUsesItsOwnAndSaysSoOnce)
{
    bank.execute("delete from locking");
    start();
    desk.dialogs.expectNoticeWith({bank.path(), "no prompt message"});
    for (const bool lock : {false, true}) {
        desk.dialogs.expectConfirm("Asha shall I lock your answer?", lock);
        desk.click("orv", "option3");
    }
}

TEST_F(ShowTest, ATallyThatCannotBeWrittenIsToldAndTheVerdictStands)
{
    bank.execute("create trigger stop before update on questions begin select raise(abort, 'no'); end");
    start();
    for (const bool lock : {false, true}) {
        desk.dialogs.expectConfirm("Asha shall I lock it?", lock);
        desk.dialogs.expectNoticeWith({bank.path()});
        desk.click("orv", "option3");
    }
    desk.clock.advance(900ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    desk.click("orv", "cmdok");
    const std::string question = shown("question").toStdString();
    bank.execute("drop trigger stop; delete from questions where question = '" + question + "'");
    desk.dialogs.expectConfirm("Asha shall I lock it?", false);
    desk.dialogs.expectNoticeWith({bank.path(), "removed this question"});
    desk.click("orv", "option3");
    desk.click("orv", "lifeline1");
    answerRight();
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 2,000") << "told once";
}

} // namespace game
