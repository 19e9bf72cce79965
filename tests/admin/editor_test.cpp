#include "owner.h"

namespace admin {

namespace {

constexpr const char* same = "-";

/// Steps in an editor and what comes of them.
struct Case
{
    const char* what;
    std::string steps;
    const char* answers = "";
    std::string boxes = {};    ///< behind a "*" a part of what they say
    std::string shown = {};    ///< looked at if it is told
    std::string stored = same; ///< "*": not looked at
    std::string mode = {};     ///< looked at if it is told
};

const std::string ask = "Admin: The Current Record has been modified do you wish to Update it?";
const std::string faults = "Admin: The Following Errors have occured. Please correct them\n";
const std::string sure = "Admin: Are you sure ?";
const std::string updated = "Admin: (i) Record Updated";
const std::string fill = "cmdadd; question= New? ; answer1=w; answer2=x; answer3= y; answer4=z; "
                         "correctanswer#2; level#2; cmdsave";

const std::string one = "1|One?|a|b|c|d|a,*b,c,d|*1,2,3";
const std::string two = "2|Two?|e|f||h|e,*f,,h|1,2,3"; // chosen without regard to letter case
const std::string seven = "7|Seven?| i|j|k|i| i,j,k,*i|1,2,*3";
const std::string mine = "1|mine|a|b|c|d|a,*b,c,d|*1,2,3";
const std::string rest = "2|Two?|e|f|null|h|F|9|1234\n7|Seven?| i|j|k|i|i|3|9999";
const std::string browsing = ": add delete exit first last next previous save update";
const std::string walking = ": add exit first last next previous save update";

void expect(const QString& screen, std::initializer_list<Case> cases)
{
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Owner owner;
        const auto stored = [&] { return screen == "messages" ? owner.messages() : owner.questions(); };
        const std::string before = stored();
        owner.open({screen.toLatin1().constData()});
        owner.answers = c.answers;
        owner.run(screen, QString::fromStdString(c.steps));
        const std::string boxes = owner.told();
        if (c.boxes.starts_with('*'))
            EXPECT_NE(boxes.find(c.boxes.substr(1)), std::string::npos) << boxes;
        else
            EXPECT_EQ(boxes, c.boxes);
        EXPECT_EQ(owner.answers, "") << "a question was not asked";
        if (!c.shown.empty())
            EXPECT_EQ(owner.shown(screen), c.shown);
        if (c.stored != "*")
            EXPECT_EQ(stored(), c.stored == same ? before : c.stored);
        if (!c.mode.empty())
            EXPECT_EQ(owner.mode(screen), c.mode);
    }
}

std::string times(int count, const std::string& box)
{
    return count == 1 ? box : box + "\n" + times(count - 1, box);
}

} // namespace

TEST(AddQuestions, AsksAboutChangesAndDropsThemOnlyThen)
{
    const std::string changed = "1|ONE?|a|b|c|d|b|1|1111\n" + rest;
    expect(
        "addquestions",
        {
            {"no", "question=ONE?; cmdnext; cmdprevious", "n", ask, one},
            {"yes", "question=ONE?; cmdnext; cmdnext", "y", ask + "\n" + updated, seven, changed},
            {"on the way out", "question=ONE?; cmdexit", "y", ask + "\n" + updated, {}, changed},
            {"typed back", "question=X; question=One?; cmdlast", "n", ask, seven},
            {"blanks at the ends are no change", "question= One? ; cmdlast", "", "", seven},
            {"what no list has is no change", "cmdnext; cmdnext; cmdprevious", "", "", two},
            {"yes, but it cannot be written: the move goes on", "answer2=; cmdnext", "y",
             ask + "\n" + faults + "Answer2 Not Entered\nCorrect Answer Not Selected\n", two},
            {"a level", "level#2; cmdfirst", "n", ask, one},
            {"entering the list empties it", "answer1=a; correctanswer#0; cmdnext", "n", ask, two},
            {"what ADD leaves behind still counts", "question=X; cmdadd; cmdcancel; cmdnext", "n", ask, two},
            {"what is emptied by ADD does not", "cmdadd; cmdcancel; cmdnext", "", "", two},
            {"and DELETE", "cmdnext; question=X; cmddelete; cmdnext", "nn", sure + "\n" + ask, seven},
        });
}

TEST(AddQuestions, AddsChangesAndDeletes)
{
    const std::string all = faults + "Question Not Entered\nAnswer1 Not Entered\nAnswer2 Not Entered\n"
                                     "Answer3 Not Entered\nAnswer4 Not Entered\n"
                                     "Correct Answer Not Selected\nLevel Not Selected\n";
    const std::string before = "1|One?|a|b|c|d|b|1|1111\n" + rest;
    expect(
        "addquestions",
        {
            {"at first", "", "", "", one, same, "question" + browsing},
            {"SAVE while browsing", "cmdsave", "", "Admin: You have not added a new record", one},
            {"an empty one", "cmdadd; cmdsave", "", all, "|||||||*,1,2,3", same,
             "cmdsave: cancel delete exit save"},
            {"blanks", "cmdadd; question=  ; answer3= ; cmdsave", "", all},
            {"a new one", fill, "", "Admin: Successfully Saved", "8| New? |w|x| y|z|w,x,* y,z|,1,*2,3",
             before + "\n8|New?|w|x|y|z|y|2|1111", "cmdsave" + browsing},
            {"and changed at once", fill + "; question=New!; cmdupdate; cmdprevious; cmdnext", "",
             "Admin: Successfully Saved\n" + updated, "8|New!|w|x|y|z|w,x,*y,z|1,*2,3",
             before + "\n8|New!|w|x|y|z|y|2|1111"},
            {"an update without the choice", "answer1=z; cmdupdate", "",
             faults + "Correct Answer Not Selected\n", "1|One?|z|b|c|d|z,b,c,d|*1,2,3"},
            {"deleted while adding", "cmdadd; question=X; cmddelete; cmdsave", "y",
             sure + "\nAdmin: Successfully deleted\n" + faults + "Answer3 Not Entered\nLevel Not Selected\n",
             two, rest},
        });
}

TEST(AddQuestions, TellsWhatOthersDidAndWhatCouldNotBeWritten)
{
    const std::string theirs = "!update questions set question = 'theirs', a = 2 where question_id = 1; ";
    const std::string nothing =
        "Admin: The question bank has no question yet. Press ADD, enter the first one "
        "and press SAVE.";
    expect("addquestions",
           {
               {"changed, and not updated", theirs + "question=mine; cmdnext", "y",
                "*changed in the meantime", mine, "1|theirs|a|b|c|d|b|1|2111\n" + rest},
               {"refused",
                "!create trigger t before insert on questions begin select raise(fail, 'no');end; " + fill,
                "", "*does not accept", "| New? |w|x| y|z|w,x,* y,z|,1,*2,3"},
               {"emptied",
                "!delete from questions; cmdfirst; cmdlast; cmdnext; cmdprevious; cmdupdate; cmddelete", "",
                times(6, nothing), "|||||||1,2,3", ""},
               {"emptied and filled again",
                "!delete from questions where question_id > 1; cmddelete; cmdadd; cmdcancel; !insert into "
                "questions "
                "(question_id, question) values (4, 'x'), (5, 'by others'); cmdlast",
                "y", sure + "\nAdmin: Successfully deleted", "5|by others|||||*,,,|1,2,3", ""},
           });
}

TEST(AddQuestions, FindsTheNextRowFromThePresentOneRound)
{
    const std::string found = "?Found. F3 goes on.";
    const std::string round = "?Found, on from the first one.";
    const std::string none = "?No question holds this.";
    expect(
        "addquestions",
        {
            {"all words, in question and options", "?J sEVEN", "", found, seven},
            {"on and round", "??; ??; ??", "", found + "\n" + found + "\n" + round, one},
            {"only this one", "cmdlast; ?seven", "", "?No other question holds this.", seven},
            {"each word", "?seven a", "", none, one},
            {"no tallies, no level", "?9999", "", none, one},
            {"letters of all alphabets",
             "!update questions set answer1 = '\u00c4\u0416' where question_id = 2; "
             "!insert into questions (question_id, question) values (9, 'null'); "
             "?a\u0308\u0436; ?null",
             "",
             found + "\n" + found,
             {},
             "*"},
            {"after a question", "question=ONE?; ?seven", "n", ask + "\n" + found, seven},
            {"that is answered with Yes", "question=mine; ?seven", "y", ask + "\n" + updated + "\n" + found,
             seven, "1|mine|a|b|c|d|b|1|1111\n" + rest},
            {"which cannot be written",
             "!update questions set question = 'theirs' where question_id = 1; "
             "question=mine; ?seven",
             "y", "*changed in the meantime", mine, "1|theirs|a|b|c|d|b|1|1111\n" + rest},
            {"no question where nothing is found", "question=X; ?zzz; cmdnext", "n", none + "\n" + ask, two},
            {"not while adding", "cmdadd; ?seven", "", "?SAVE or CANCEL the new one first.",
             "|||||||*,1,2,3"},
        });
    expect("messages",
           {{"drops what was typed", "message=lost; ?REALLY; ?sure", "", found + "\n" + round, "sure?"}});
}

TEST(AddQuestions, NotesThatTheBankHasNearlyTheQuestionThatIsTypedIn)
{
    const std::string has = "!update questions set question = 'Which rivers flow past Delhi in 1947?' where "
                            "question_id = 7; ";
    const std::string told =
        "~The bank has one nearly like it, number 7: Which rivers flow past Delhi in 1947?";
    const std::string nothing = "~";
    for (const auto& [question, note] : std::initializer_list<std::pair<const char*, std::string>>{
             {"DELHI 1947: the river flows past", told},
             {"By Delhi, which river flowed in 1947", told},
             {"By Delhi, which river flowed in 1948", nothing},
             {"Which river of Africa flows north in 1947", nothing},
             {"1947", nothing}}) {
        const auto steps = has + "cmdadd; question=" + question + "; wait";
        expect("addquestions", {{question, steps, "", note, {}, "*"}});
    }
    const auto itself = "cmdlast; question=The rivers that flow past Delhi in 1947; wait; ";
    expect("addquestions", {{"itself", has + itself + "cmdfirst", "n", nothing + "\n" + ask, {}, "*"},
                            {"gone",
                             has + "cmdadd; question=The river past Delhi in 1947; wait; cmdcancel; wait",
                             "",
                             told + "\n" + nothing,
                             {},
                             "*"}});
}

TEST(Finding, IsDoneByKeysAndEndedByEscape)
{
    Owner owner;
    owner.open({"addquestions"});
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(owner.form("addquestions").focusWidget(), key, with);
    };
    const auto result = [&] { return owner.text("addquestions", "findresult").toStdString(); };
    const auto& words = owner.control<toolkit::TextBox>("addquestions", "findwords");
    EXPECT_FALSE(words.isVisible());
    press(Qt::Key_F3);
    QTest::keyClicks(owner.form("addquestions").focusWidget(), "SEVEN");
    EXPECT_EQ(words.text(), "SEVEN");
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    owner.clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(result() + owner.shown("addquestions"), "Search ended." + one);
    press(Qt::Key_F3);
    owner.click("addquestions", "cmdnext");
    owner.clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(result() + owner.shown("addquestions"), two) << "whoever goes elsewhere has ended the search";
    press(Qt::Key_F3);
    owner.clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(owner.shown("addquestions"), seven);
    press(Qt::Key_Escape);
    EXPECT_FALSE(words.isVisible());
    EXPECT_EQ(owner.focused("addquestions"), "question");
}

TEST(Messages, AreKeptAsTyped)
{
    const std::string nothing = "Admin: The question bank has no message yet. Press ADD, enter the first one "
                                "and press SAVE.";
    expect("messages",
           {
               {"at first", "", "", "", "sure?", same,
                "message: add cancel exit first last next previous save update"},
               {"what was not written is dropped", "message=lost; cmdnext; message=lost; cmdcancel", "", "",
                " really? ", same, "message" + walking},
               {"blanks only", "cmdadd; message=  ; cmdsave", "", faults + "Message Cannot be left Empty",
                "  ", same, "cmdsave: cancel exit save"},
               {"saved, and changed", "cmdadd; message=  new ; cmdsave; message=newer ; cmdupdate", "",
                "Admin: (i) Successfully Saved\nAdmin: (i) Updated", "newer ", "sure?| really? |newer ",
                "cmdupdate" + walking},
               {"update to nothing", "message= ; cmdupdate", "", "Admin: (i) Can't be left empty", " "},
               {"emptied", "!delete from locking; cmdfirst; cmdlast; cmdnext; cmdprevious; cmdupdate", "",
                times(5, nothing), "", ""},
           });
}

} // namespace admin
