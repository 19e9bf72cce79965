#include "show.h"

#include <QFile>

namespace game {

using namespace std::chrono_literals;

TEST_F(ShowTest, AGameThatCannotStartSaysWhyAndLeavesToTheThankYouScreen)
{
    struct Case
    {
        const char* harm; ///< "" removes the file
        const char* repair;
        bool named; ///< the name is asked before the failure shows
        const char* reason;
    };
    const Case cases[] = {
        {"alter table questions rename to q", "alter table q rename to questions", false, "questions"},
        {"alter table questions rename column answer3 to third",
         "alter table questions rename column third to answer3", false, "answer3"},
        {"alter table locking rename to l", "alter table l rename to locking", false, "locking"},
        {"update questions set Level = '4' where Level = '1'", "select 1", true, "level 1"},
        {"", "", false, "missing"},
    };
    for (const auto& [harm, repair, named, reason] : cases) {
        if (*harm)
            bank.execute(harm);
        else
            QFile::remove(bank.path());
        if (named)
            desk.dialogs.expectInput("Please Enter your First Name ", "Asha");
        desk.dialogs.expectNoticeWith({bank.path(), reason});
        expectFarewell();
        desk.screens.show("orv");
        EXPECT_EQ(desk.open(), "thank") << reason;
        desk.screens.close("thank");
        if (*repair)
            bank.execute(repair);
    }
    EXPECT_FALSE(QFile::exists(bank.path()));
}

TEST_F(ShowTest, AGameThatCannotGoOnKeepsWhatWasWonSoFar)
{
    bank.execute("delete from questions where Level = '2' and question_id > 22");
    start();
    answerUpTo(6);
    answerRight();
    desk.dialogs.expectNoticeWith({bank.path(), "level 2", "holds 2"});
    desk.click("orv", "cmdok");
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 40,000");
    EXPECT_TRUE(visible("eraseoptions") && visible("cmdokquit"));
    EXPECT_FALSE(visible("cmdok") || enabled("LL"));
    EXPECT_EQ(focused(), "cmdokquit");
    expectFarewell();
    desk.click("orv", "cmdokquit");
    EXPECT_EQ(desk.open(), "thank");
}

TEST_F(ShowTest, WithoutPromptMessagesTheHostUsesItsOwnAndSaysSoOnce)
{
    bank.execute("delete from locking");
    start();
    desk.dialogs.expectNoticeWith({bank.path(), "no prompt message"});
    desk.dialogs.expectConfirm("Asha shall I lock your answer?", false);
    desk.click("orv", "option1");
    desk.dialogs.expectConfirm("Asha shall I lock your answer?", true);
    desk.click("orv", "option3");
    desk.clock.advance(900ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
}

TEST_F(ShowTest, ATallyThatCannotBeWrittenIsToldAndTheVerdictStands)
{
    bank.execute("create trigger stop before update on questions begin select raise(abort, 'no'); end");
    start();
    desk.dialogs.expectConfirm("Asha shall I lock it?", false);
    desk.dialogs.expectNoticeWith({bank.path()});
    desk.click("orv", "option1");
    desk.dialogs.expectConfirm("Asha shall I lock it?", true);
    desk.dialogs.expectNoticeWith({bank.path()});
    desk.click("orv", "option3");
    desk.clock.advance(900ms);
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 1,000");
    desk.click("orv", "cmdok");
    EXPECT_TRUE(shown("question").startsWith("Question 1."));
}

TEST_F(ShowTest, ATableThatVanishesDuringTheGameEndsItWithWhatWasWon)
{
    start();
    answerUpTo(3);
    bank.execute("drop table locking");
    desk.dialogs.expectNoticeWith({bank.path(), "locking"});
    desk.click("orv", "option3");
    EXPECT_EQ(shown("question"), "Total Prize Money Rs. 3,000");
    EXPECT_TRUE(visible("cmdokquit"));
    EXPECT_EQ(focused(), "cmdokquit");
}

} // namespace game
