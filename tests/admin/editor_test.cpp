#include "owner.h"

namespace admin {

TEST(AddQuestions, AsksAboutChangesAndDropsThemOnlyThen)
{
    expect("addquestions", R"(
question=ONE?; cmdnext:n; cmdprevious => update? => one
question=ONE?; cmdnext:y; cmdnext => update? + updated => seven => 1|ONE?|a|b|c|d|b|1|1111 + 2 + 7
question=ONE?; cmdexit:y => update? + updated =>  => 1|ONE?|a|b|c|d|b|1|1111 + 2 + 7
question=X; question=One?; cmdlast:n => update? => seven
question= One? ; cmdlast =>  => seven
cmdnext; cmdnext; cmdprevious =>  => two
answer2=; cmdnext:y => update? + faults + Answer2 Not Entered + Correct Answer Not Selected + empty => two
level#2; cmdfirst:n => update? => one
answer1=a; correctanswer#0; cmdnext:n => update? => two
question=X; cmdadd; cmdcancel; cmdnext:n => update? => two
cmdadd; cmdcancel; cmdnext =>  => two
cmdnext; question=X; cmddelete:n; cmdnext:n => delete? + update? => seven
)");
}

TEST(AddQuestions, AddsChangesAndDeletes)
{
    expect("addquestions", R"(
wait => ~ => one =>  => question: add delete exit first last next previous save update
cmdsave => not adding => one
cmdadd; cmdsave => faults + Question Not Entered + Answer1 Not Entered + Answer2 Not Entered + Answer3 Not Entered + Answer4 Not Entered + Correct Answer Not Selected + Level Not Selected + empty => empty one =>  => cmdsave: cancel delete exit save
cmdadd; question=  ; answer1=a; answer2=b; answer3= ; answer4=d; correctanswer#0; level#1; cmdsave => faults + Question Not Entered + Answer3 Not Entered + empty
cmdadd; question= New? ; answer1=w; answer2=x; answer3= y; answer4=z; correctanswer#2; level#2; cmdsave => saved => new one => 1 + 2 + 7 + 8 => cmdsave: add delete exit first last next previous save update
!create table once (write unique); !create trigger i after insert on questions begin insert into once values (1);end; !create trigger u after update on questions begin insert into once values (2);end; cmdadd; question=New?; answer1=w; answer2=x; answer3=y; answer4=z; correctanswer#2; level#2; cmdsave; question=New!; cmdupdate; cmdprevious; cmdnext => saved + updated => 8|New!|w|x|y|z|w,x,*y,z|1,*2,3 => 1 + 2 + 7 + 8|New!|w|x|y|z|y|2|1111
answer1=z; cmdupdate => faults + Correct Answer Not Selected + empty => 1|One?|z|b|c|d|z,b,c,d|*1,2,3
cmdadd; question=X; cmddelete:y; cmdsave => delete? + deleted + faults + Answer3 Not Entered + Level Not Selected + empty => two => 2 + 7
)");
}

TEST(AddQuestions, TellsWhatOthersDidAndWhatCouldNotBeWritten)
{
    expect("addquestions", R"(
!update questions set question = 'theirs' where question_id = 1; question=mine; cmdnext:y => update? + *changed in the meantime => mine => 1|theirs|a|b|c|d|b|1|1111 + 2 + 7
!create trigger t before insert on questions begin select raise(fail, 'no');end; cmdadd; question= New? ; answer1=w; answer2=x; answer3= y; answer4=z; correctanswer#2; level#2; cmdsave => Admin: (!) *does not accept => | New? |w|x| y|z|w,x,* y,z|,1,*2,3
!delete from questions; cmdfirst; cmdlast; cmdnext; cmdprevious; cmdupdate; cmddelete => no question + no question + no question + no question + no question + no question => |||||||1,2,3 => empty
!delete from questions where question_id > 1; cmddelete:y; cmdadd; cmdcancel; !insert into questions (question_id, question) values (4, 'x'), (5, 'by others'); cmdlast => delete? + deleted => 5|by others|||||*,,,|1,2,3 => empty
)");
}

// A word is found with its accent and without.
TEST(Editors, FindTheNextRowFromThePresentOneRound)
{
    expect("addquestions", R"(
?J dELHI => found => seven
??; ??; ?? => found + found + found round => one
cmdlast; ?delhi => ?No other question holds this. => seven
?delhi one => not found => one
?9999 => not found => one
!update questions set answer1 = 'ÄЖ' where question_id = 2; !insert into questions (question_id, question) values (9, 'null'); ?aж; ?null => found + found =>  => *
question=ONE?; :n; ?delhi => update? + found => seven
question=mine; :y; ?delhi => update? + updated + found => seven => 1|mine|a|b|c|d|b|1|1111 + 2 + 7
!update questions set question = 'theirs' where question_id = 1; question=mine; :y; ?delhi => update? + *changed in the meantime => mine => *
question=X; ?zzz; cmdnext:n => not found + update? => two
cmdadd; ?delhi => ?SAVE or CANCEL the new one first. => empty one
)");
    expect("messages", "message=lost; ?REALLY; ?sure => found + found round => sure?");
}

TEST(AddQuestions, NotesThatTheBankHasNearlyTheQuestionThatIsTypedIn)
{
    expect("addquestions", R"(
cmdadd; question=DELHI, a river past it 1947; wait => near =>  => *
cmdadd; question=By Delhi, which river flowed in 1947; wait => near =>  => *
cmdadd; question=By Delhi, which river flowed in 1948; wait => ~ =>  => *
cmdadd; question=Which river of Africa flows north in 1947; wait => ~ =>  => *
cmdadd; question=1947; wait => ~ =>  => *
cmdadd; question=The river past Delhi in 1947; wait; cmdcancel; wait => near + ~ =>  => *
cmdlast; question=The rivers that flow past Delhi in 1947; wait; cmdfirst:n => ~ + update? =>  => *
)");
}

TEST(Finding, IsDoneByKeysAndEndedByEscape)
{
    Owner owner;
    owner.open({"messages", "addquestions"});
    const auto press = [&](Qt::Key key) { QTest::keyClick(owner.form("addquestions").focusWidget(), key); };
    const auto lookAfterASecond = [&] {
        owner.run("1000ms");
        return owner.shown("addquestions", "findresult questionid");
    };
    const auto& words = owner.control<toolkit::TextBox>("addquestions", "findwords");
    EXPECT_FALSE(words.isVisible());
    press(Qt::Key_F3);
    QTest::keyClicks(owner.form("addquestions").focusWidget(), "DELHI");
    press(Qt::Key_Return);
    EXPECT_EQ(owner.shown("addquestions", "findresult"), "Searching");
    press(Qt::Key_Escape);
    EXPECT_EQ(lookAfterASecond(), "Search ended.|1");
    press(Qt::Key_F3);
    owner.run("cmdnext", "addquestions");
    EXPECT_EQ(lookAfterASecond(), "|2") << "whoever goes elsewhere has ended the search";
    press(Qt::Key_F3);
    EXPECT_EQ(lookAfterASecond(), "Found. F3 goes on.|7");
    press(Qt::Key_Escape);
    EXPECT_FALSE(words.isVisible());
    EXPECT_EQ(owner.focused("addquestions"), "question");
}

TEST(Messages, AreKeptAsTyped)
{
    expect("messages", R"(
cmdsave => not adding => sure? =>  => cmdsave: add cancel exit first last next previous save update
message=lost; cmdnext; message=lost; cmdcancel =>  =>  really?  =>  => message: add exit first last next previous save update
cmdadd; message=  ; cmdsave => faults + Message Cannot be left Empty =>    =>  => cmdsave: cancel exit save
cmdadd; message=  new ; cmdsave; message=newer ; cmdupdate => Admin: (i) Successfully Saved + Admin: (i) Updated => newer  => sure?| really? |newer  => cmdupdate: add exit first last next previous save update
message= ; cmdupdate => Admin: (i) Can't be left empty
!delete from locking; cmdfirst; cmdlast; cmdnext; cmdprevious; cmdupdate => no message + no message + no message + no message + no message =>  => empty
)");
}

} // namespace admin
