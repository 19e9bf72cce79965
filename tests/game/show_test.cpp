#include "show.h"

namespace game {

TEST_F(ShowTest, AGameStartsWithTheGreetingTheNameAndTheFirstQuestion)
{
    random.numbers = {0.5F};
    EXPECT_EQ(after("!update questions set answer2 = null, answer3 = 'B & C <i>'; show orv"),
              "Load genie genie.acs; Show; Play Greet; Speak swagat hai aapka ,orvanta main; Orvanta: Please "
              "Enter your First Name ; Stop; Play announce; Speak Your question is,,Question 1.3,,the four "
              "options are,,A,1.3 one,B,,C,B & C <i>,D,1.3 four; Play think");
    EXPECT_EQ(open(), "back orv");
    EXPECT_EQ(shows("question option1 option2 option3 option4 announcement"),
              "Question 1.3|A> 1.3 one|B> |C> B & C <i>|D> 1.3 four|"
              "Question 1 of 15: Question 1.3 A, 1.3 one; B, ; C, B & C <i>; D, 1.3 four");
}

TEST_F(ShowTest, WithoutAHostTheGameGoesOnInSilence)
{
    hostMissing = true;
    EXPECT_EQ(after("show orv; " + right),
              "Orvanta: Please Enter your First Name ; Orvanta: Asha shall I lock it?");
    EXPECT_EQ(shows("question announcement"), "Total Prize Money Rs. 1,000|Total Prize Money Rs. 1,000");
}

TEST_F(ShowTest, ARightAnswerFlashesForNineTicksAndMovesUp)
{
    after("show orv");
    EXPECT_EQ(after("option3:y"), "Stop; Speak Asha,shall I lock it?; Orvanta: Asha shall I lock it?; Stop; "
                                  "Play Congratulate; Speak correct answer");
    std::string flashes;
    for (int tick = 0; tick < 10; ++tick) {
        EXPECT_EQ(shows("question"), tick < 9 ? "Question 1.1" : "Total Prize Money Rs. 1,000");
        flashes += looks() + ' ';
        run("100ms");
    }
    EXPECT_EQ(flashes, "..c. .... ..g. .... ..g. .... ..g. .... ..g. .... ");
    EXPECT_EQ(told(), "Play RestPose; Speak Total Prize Money Rupees  one thousand ");
    EXPECT_EQ(shows("focus"), "cmdok");
    after("cmdok");
    EXPECT_EQ(shows("focus"), "LL") << "not on WITHDRAW, which an Enter too many would press";
}

TEST_F(ShowTest, TheVerdictComparesWithoutLetterCaseButWithBlanks)
{
    after("!update questions set correct_answer = '1.1 THREE ' where question_id = 11; show orv; option3:y");
    EXPECT_EQ(looks(), "..c.");
    EXPECT_EQ(shows("announcement focus"), "Total Prize Money Rs. 0|cmdokquit");
}

TEST_F(ShowTest, AWrongAnswerShowsEveryRightOneAndPaysTheSafeAmount)
{
    after("!update questions set answer4 = '2.1 THREE' where question_id = 21; show orv; " + answered(4));
    const std::string fifth = after(right);
    EXPECT_TRUE(fifth.ends_with("Speak Total Prize Money Rupees  ten thousand .Now you will definately take "
                                "away Rupees  ten thousand  with you!!"))
        << fifth;
    random.numbers = {0};
    after("cmdok");
    meanwhile = [this] {
        meanwhile = [this] { log << QString::fromStdString(looks()); };
    }; // of the second box
    EXPECT_EQ(
        after("option1:y"),
        "Stop; Speak Asha,shall I lock it?; Orvanta: Asha shall I lock it?; Stop; Play Decline; Speak "
        "Sorry! Asha But your Answer is wrong. The correct answer was 2.1 Three; Play Congratulate_2; "
        "Speak Better luck next time; Orvanta: (!) Sorry! Asha But your Answer is wrong. The correct "
        "answer was 2.1 Three; c.gg; Stop; Play Announce; Speak This game was made by The Orvanta Team. "
        "Please send your comments by e-mail to team@orvanta.example.");
    EXPECT_EQ(shows("question focus"), "Total Prize Money Rs. 10,000|cmdokquit");
}

TEST_F(ShowTest, FifteenRightAnswersWinACrore)
{
    after("show orv; " + answered(14) + right);
    EXPECT_EQ(shows("question"), "Congrulations You are now a Tazmir\nTotal Prize Money Rs. 1,00,00,000");
    EXPECT_EQ(after("cmdok"), "Stop; Play DoMagic1; Speak Congrulations!!! Asha; Play DoMagic2; Speak You "
                              "have won a crore Rupees!; Play Congratulate_2; Orvanta: (i) Congrulations!!! "
                              "Asha; Orvanta: (i) You have won a crore Rupees!; " +
                                  farewell);
    EXPECT_EQ(open(), "thank");
    EXPECT_EQ(bank.value("select sum(a) || ' ' || sum(c) from questions"), "15 30");
}

TEST_F(ShowTest, AGameClosedFromOutsideSaysFarewellAndEndsTheProgram)
{
    after("show orv; option3:y");
    meanwhile = [this] { run("close orv"); }; // asked again while it says so
    form("orv").close();
    EXPECT_EQ(told(), farewell);
    EXPECT_EQ(open(), "");
    EXPECT_EQ(after("settle; 10000ms"), "ended; ended");
}

} // namespace game
