#include "owner.h"

namespace admin {

namespace {

/// Steps in an editor and what comes of them. Nothing at all is expected of a part that is left out.
struct Case
{
    const char* what;
    const char* steps;
    const char* answers = "";
    const char* boxes = "";
    const char* shown = nullptr;
    const char* stored = nullptr;
    const char* before = nullptr; ///< done to the file when the editor is open
};

const char* const ask = "Admin: The Current Record has been modified do you wish to Update it?";
const char* const heading = "Admin: The Following Errors have occured. Please correct them\n";

const char* const one = "1|One?|a|b|c|d|a,*b,c,d|*1,2,3";
const char* const two = "2|Two?|e|f||h|e,*f,,h|1,2,3"; // chosen without regard to letter case
const char* const seven = "7|Seven?| i|j|k|i| i,j,k,*i|1,2,*3";

std::string rows(const std::string& first, const std::string& rest = {})
{
    return first + "\n2|Two?|e|f|null|h|F|9|1234\n7|Seven?| i|j|k|i|i|3|9999" + rest;
}
const std::string stored = rows("1|One?|a|b|c|d|b|1|1111");

void expect(const QString& screen, const Case& c)
{
    SCOPED_TRACE(c.what);
    Owner owner;
    owner.open({screen.toLatin1().constData()});
    if (c.before)
        owner.bank.execute(c.before);
    owner.dialogs.answers = c.answers;
    owner.run(screen, c.steps);
    EXPECT_EQ(owner.dialogs.take(), c.boxes);
    EXPECT_EQ(owner.dialogs.answers, "") << "a question was not asked";
    if (c.shown)
        EXPECT_EQ(owner.shown(screen), c.shown);
    const bool questions = screen == "addquestions";
    const std::string unchanged = questions ? stored : "sure?| really? ";
    EXPECT_EQ(questions ? owner.questions() : owner.messages(), c.stored ? c.stored : unchanged);
}

} // namespace

TEST(AddQuestions, Walks)
{
    const Case cases[] = {
        {"opens on the first", "", "", "", one},
        {"back from the first", "cmdprevious", "", "", one},
        {"what no list has leaves the lists without a choice", "cmdnext", "", "", two},
        {"by number", "cmdnext; cmdnext", "", "", seven},
        {"on from the last", "cmdlast; cmdnext", "", "", seven},
        {"back", "cmdlast; cmdprevious; cmdfirst", "", "", one},
    };
    for (const Case& c : cases)
        expect("addquestions", c);
}

TEST(AddQuestions, AsksAboutChangesAndDropsThemOnlyThen)
{
    const std::string changed = rows("1|ONE?|a|b|c|d|b|1|1111");
    const std::string updated = std::string(ask) + "\nAdmin: (i) Record Updated";
    const std::string failed =
        std::string(ask) + "\n" + heading + "Answer2 Not Entered\nCorrect Answer Not Selected\n";
    const Case cases[] = {
        {"no", "question=ONE?; cmdnext; cmdprevious", "n", ask, one},
        {"yes", "question=ONE?; cmdnext; cmdnext", "y", updated.c_str(), seven, changed.c_str()},
        {"typed back", "question=X; question=One?; cmdlast", "n", ask, seven},
        {"blanks at the ends are no change", "question= One? ; cmdlast", "", "", seven},
        {"yes, but it cannot be written: the move goes on", "answer2=; cmdnext", "y", failed.c_str(), two},
        {"a level", "level#2; cmdfirst", "n", ask, one},
        {"entering the list empties it", "answer1=a; correctanswer#0; cmdnext", "n", ask, two},
        {"exit asks", "question=X; cmdnext; cmdlast", "n", ask, seven},
        {"what ADD leaves behind still counts", "question=X; cmdadd; cmdcancel; cmdnext", "n", ask, two},
        {"and DELETE", "cmdnext; question=X; cmddelete; cmdnext", "nn",
         "Admin: Are you sure ?\nAdmin: The Current Record has been modified do you wish to Update it?",
         seven},
    };
    for (const Case& c : cases)
        expect("addquestions", c);
}

TEST(AddQuestions, AddsChangesAndDeletes)
{
    const std::string added = rows("1|One?|a|b|c|d|b|1|1111", "\n8|New?|w|x|y|z|y|2|1111");
    const std::string addedAgain = rows("1|One?|a|b|c|d|b|1|1111", "\n8|New!|w|x|y|z|y|2|1111");
    const std::string all = std::string(heading) +
                            "Question Not Entered\nAnswer1 Not Entered\nAnswer2 Not Entered\nAnswer3 Not "
                            "Entered\nAnswer4 Not Entered\nCorrect Answer Not Selected\nLevel Not Selected\n";
    const char* const fill = "cmdadd; question= New? ; answer1=w; answer2=x; answer3= y; answer4=z; "
                             "correctanswer#2; level#2; cmdsave";
    const std::string changeNew = std::string(fill) + "; question=New!; cmdupdate; cmdprevious; cmdnext";
    const std::string without = stored.substr(stored.find("2|Two"));
    const Case cases[] = {
        {"SAVE while browsing", "cmdsave", "", "Admin: You have not added a new record", one},
        {"an empty one", "cmdadd; cmdsave", "", all.c_str(), "|||||||*,1,2,3"},
        {"blanks", "cmdadd; question=  ; answer3= ; cmdsave", "", all.c_str()},
        {"a new one", fill, "", "Admin: Successfully Saved", "8| New? |w|x| y|z|w,x,* y,z|,1,*2,3",
         added.c_str()},
        {"and changed at once", changeNew.c_str(), "", "Admin: Successfully Saved\nAdmin: (i) Record Updated",
         "8|New!|w|x|y|z|w,x,*y,z|1,*2,3", addedAgain.c_str()},
        {"ADD twice brings two empty levels", "cmdadd; cmdcancel; cmdadd; cmdcancel", "", "", one},
        {"an update without the choice", "answer1=z; cmdupdate", "",
         "Admin: The Following Errors have occured. Please correct them\nCorrect Answer Not Selected\n",
         "1|One?|z|b|c|d|z,b,c,d|*1,2,3"},
        {"not deleted", "cmddelete", "n", "Admin: Are you sure ?", one},
        {"deleted", "cmddelete", "y", "Admin: Are you sure ?\nAdmin: Successfully deleted", two,
         without.c_str()},
        {"deleted while adding", "cmdadd; question=X; cmddelete; cmdsave", "y",
         "Admin: Are you sure ?\nAdmin: Successfully deleted\nAdmin: The Following Errors have occured. "
         "Please "
         "correct them\nAnswer3 Not Entered\nLevel Not Selected\n",
         two, without.c_str()},
    };
    for (const Case& c : cases)
        expect("addquestions", c);
}

TEST(Messages, AreKeptAsTyped)
{
    const Case cases[] = {
        {"walks and drops what was not written", "message=lost; cmdnext; cmdnext", "", "", " really? "},
        {"back to the start", "cmdlast; cmdprevious; cmdprevious", "", "", "sure?"},
        {"SAVE while browsing", "cmdsave", "", "Admin: You have not added a new record"},
        {"blanks only", "cmdadd; message=  ; cmdsave", "",
         "Admin: The Following Errors have occured. Please correct them\nMessage Cannot be left Empty", "  "},
        {"saved, and changed", "cmdadd; message=  new ; cmdsave; message=newer ; cmdupdate", "",
         "Admin: (i) Successfully Saved\nAdmin: (i) Updated", "newer ", "sure?| really? |newer "},
        {"update to nothing", "message= ; cmdupdate", "", "Admin: (i) Can't be left empty", " "},
        {"CANCEL", "message=lost; cmdcancel", "", "", "sure?"},
    };
    for (const Case& c : cases)
        expect("messages", c);
}

TEST(Editors, EnableButtonsByMode)
{
    const char* const browse = "add delete exit first last next previous save update";
    const char* const add = "cancel delete exit save";
    const char* const walk = "add exit first last next previous save update";
    struct Row
    {
        const char* screen;
        const char* steps;
        const char* buttons;
        const char* focus;
    };
    const char* const filled = "cmdadd; question=Q; answer1=a; answer2=b; answer3=c; answer4=d; "
                               "correctanswer#1; level#1; cmdsave";
    const Row rows[] = {
        {"addquestions", "", browse, "question"},
        {"addquestions", "cmdadd", add, "question"},
        {"addquestions", "cmdadd; cmdsave", add, "cmdsave"},
        {"addquestions", filled, browse, "cmdsave"},
        {"addquestions", "cmdadd; cmdcancel", browse, nullptr},
        {"messages", "", "add cancel exit first last next previous save update", "message"},
        {"messages", "cmdadd", "cancel exit save", "message"},
        {"messages", "cmdadd; message=x; cmdsave", walk, "cmdsave"},
        {"messages", "cmdcancel", walk, nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.steps);
        Owner owner;
        owner.open({row.screen});
        owner.run(row.screen, row.steps);
        EXPECT_EQ(owner.buttons(row.screen), row.buttons);
        if (row.focus)
            EXPECT_EQ(owner.focused(row.screen), row.focus);
    }
}

TEST(Editors, SayWhyThereIsNothingToDoInAnEmptyTable)
{
    for (const char* screen : {"addquestions", "messages"}) {
        SCOPED_TRACE(screen);
        Owner owner;
        owner.bank.execute("delete from questions; delete from locking");
        owner.open({screen});
        owner.dialogs.take();
        for (const char* step : {"cmdfirst", "cmdlast", "cmdnext", "cmdprevious", "cmdupdate", "cmddelete"}) {
            if (screen == std::string("messages") && step == std::string("cmddelete"))
                continue;
            owner.run(screen, step);
            EXPECT_NE(owner.dialogs.take().find("Press ADD"), std::string::npos) << step;
        }
    }
    Owner owner;
    owner.bank.execute("delete from questions where question_id > 1");
    owner.open({"addquestions"});
    owner.dialogs.answers = "y";
    owner.run("addquestions", "cmddelete; cmdadd; cmdcancel");
    EXPECT_EQ(owner.shown("addquestions"), "|||||||1,2,3");
    EXPECT_EQ(owner.dialogs.take(), "Admin: Are you sure ?\nAdmin: Successfully deleted");
    owner.bank.execute("insert into questions (question_id, question) values (4, 'x'), (5, 'by others')");
    owner.run("addquestions", "cmdlast");
    EXPECT_EQ(owner.shown("addquestions"), "5|by others|||||*,,,|1,2,3");
}

TEST(Editors, TellWhatOthersChangedAndWhatCouldNotBeWritten)
{
    const std::string theirs = rows("1|theirs|a|b|c|d|b|1|2111");
    const std::string refuse =
        "create trigger t before insert on questions begin select raise(fail, 'no'); end";
    struct Row
    {
        const char* before;
        const char* steps;
        const char* answers;
        const char* told;
        const char* shown;
        const char* stored;
    };
    const char* const edited = "1|mine|a|b|c|d|a,*b,c,d|*1,2,3";
    const std::string tallied = rows("1|mine|a|b|c|d|b|1|2111");
    const Row cases[] = {
        {"update questions set question = 'theirs', a = 2 where question_id = 1", "question=mine; cmdnext",
         "y", "changed in the meantime", edited, theirs.c_str()},
        {"update questions set question = 'theirs', a = 2 where question_id = 1", "cmddelete", "y",
         "changed in the meantime", one, theirs.c_str()},
        {"delete from questions where question_id = 1", "question=mine; cmdupdate", "",
         "deleted the current row", edited, nullptr},
        {"update questions set a = 2 where question_id = 1", "question=mine; cmdupdate", "", "Record Updated",
         edited, tallied.c_str()},
        {refuse.c_str(),
         "cmdadd; question=Q; answer1=a; answer2=b; answer3=c; answer4=d; correctanswer#1; level#1; cmdsave",
         "", "does not accept", "|Q|a|b|c|d|a,*b,c,d|,*1,2,3", stored.c_str()},
    };
    for (const Row& c : cases) {
        SCOPED_TRACE(c.before);
        Owner owner;
        owner.open({"addquestions"});
        owner.bank.execute(c.before);
        owner.dialogs.answers = c.answers;
        owner.run("addquestions", c.steps);
        EXPECT_NE(owner.dialogs.take().find(c.told), std::string::npos);
        EXPECT_EQ(owner.shown("addquestions"), c.shown);
        if (c.stored)
            EXPECT_EQ(owner.questions(), c.stored);
    }
}

// Whatever is typed or stored, it is shown whole, comes back as it was and is nothing but a value.
TEST(Editors, KeepHostileTextsAsTheyAre)
{
    const QString texts[] = {"'); drop table questions;--",
                             "\"quoted\" `ticks` [x]",
                             "/* % _ * ? */",
                             "a\tb\u0001c\u007F",
                             "\u05E9\u05DC\u05D5\u05DD \u202Eabc\u202C",
                             "e\u0301\u0327\u0915\u094D\u0937\u093F",
                             "\U0001F9DE\u200D\u2640\uFE0F",
                             "\u0130\u00DF\uFB01 NULL 0x41",
                             QString(40000, QChar(0x0905)),
                             "line\nbreak\r\n\u2028end"};
    for (const QString& text : texts) {
        SCOPED_TRACE(text.first(qMin(text.size(), qsizetype(20))).toStdString());
        Owner owner;
        owner.open({"messages", "addquestions"});
        auto& box = owner.control<toolkit::TextBox>("messages", "message");
        box.setText(text);
        owner.run("messages", "cmdupdate; cmdnext; cmdprevious");
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(owner.bank.value("select message from locking limit 1"), text.toStdString());

        for (const char* name : {"question", "answer1", "answer4"})
            owner.control<toolkit::TextBox>("addquestions", name).setText(text);
        owner.run("addquestions", "correctanswer#0; cmdupdate; cmdnext; cmdprevious");
        owner.dialogs.take();
        EXPECT_EQ(owner.bank.value("select count(*) from questions where question = answer1 and answer1 ="
                                   " answer4 and correct_answer = answer4"),
                  "1");
        EXPECT_EQ(owner.bank.value("select question from questions where question_id = 1"),
                  text.toStdString());
        EXPECT_EQ(owner.control<toolkit::TextBox>("addquestions", "answer4").text(), text);
        EXPECT_EQ(owner.bank.value("select count(*) from questions"), "3");
    }
}

} // namespace admin
