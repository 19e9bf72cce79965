#include "admin/add_questions.h"

#include "admin/nearness.h"
#include "toolkit/screens.h"

namespace admin {

using namespace std::chrono_literals;

namespace schema = db::schema;
using toolkit::trimmed;
using Icon = toolkit::Dialogs::Icon;

namespace {

constexpr std::array searchedFields = {schema::question, schema::answers[0], schema::answers[1],
                                       schema::answers[2], schema::answers[3]};
constexpr std::array comparedFields = {schema::questionId, schema::question};

} // namespace

AddQuestions::AddQuestions(toolkit::Services services)
    : Editor({.name = "addquestions",
              .caption = "Add Questions",
              .width = 7035,
              .height = 5910,
              .border = toolkit::Border::Sizable},
             services, "question")
{
    QFont narrow = font(); // the box beside it is near
    narrow.setPixelSize(narrow.pixelSize() - 1);
    // clang-format off
    label("Label9", {240, 120, 5070, 195},
          "These questions appear to the constantant randomly according to level.", {.sizedToText = true});
    label("Label7", {240, 480, 840, 195}, "Question ID", {.font = narrow, .sizedToText = true});
    questionid = textBox("questionid", {1200, 480, 855, 285}, toolkit::TextBox::noLimit, {.tab = 17});
    label("Label1", {240, 840, 630, 195}, "Question", {.sizedToText = true});
    question = textBox("question", {1200, 840, 3615, 285}, schema::questionLimit, {.tab = 0});
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const double top = 1320 + 480 * static_cast<double>(i);
        const int number = static_cast<int>(i) + 1;
        label(QString("Label%1").arg(number + 1), {240, top, 615, 195},
              QString("Answer%1").arg(number), {.sizedToText = true});
        answers[i] = textBox(schema::answers[i], {1200, top, 1935, 285}, schema::answerLimit, {.tab = number});
    }
    line("Line1", {240, 3360}, {3960, 3360}, palette().color(QPalette::WindowText), 1);
    label("Label6", {240, 3600, 1080, 195}, "Correct Answer", {.sizedToText = true});
    correctanswer = choiceList("correctanswer", {1680, 3600, 1815, 315}, {.tab = 5});
    label("Label8", {240, 4080, 1095, 255}, "Level:", {});
    level = choiceList("level", {1680, 4080, 1815, 315}, {.tab = 6});
    cmdadd = button("cmdadd", {240, 4560, 855, 255}, "&ADD", {.tab = 7});
    cmdsave = button("cmdsave", {1320, 4560, 975, 255}, "&SAVE", {.tab = 8});
    cmdupdate = button("cmdupdate", {2520, 4560, 975, 255}, "&UPDATE", {.tab = 9});
    cmddelete = button("cmddelete", {3720, 4560, 975, 255}, "&DELETE", {.tab = 10});
    cmdcancel = button("cmdcancel", {4920, 4560, 855, 255}, "&CANCEL", {.tab = 11});
    cmdfirst = button("cmdfirst", {240, 4920, 855, 255}, "<<", {.tab = 12});
    cmdprevious = button("cmdprevious", {1320, 4920, 975, 255}, "<", {.tab = 13});
    cmdnext = button("cmdnext", {2520, 4920, 975, 255}, ">", {.tab = 14});
    cmdlast = button("cmdlast", {3720, 4920, 975, 255}, ">>", {.tab = 15});
    cmdexit = button("cmdexit", {4920, 4920, 855, 255}, "E&XIT", {.tab = 16});
    near = label("near", {3360, 1200, 3435, 1845}, "", {});
    addFindBar({240, 5340, 6555, 285}, 2700, searchedFields);
    // clang-format on
    pause = timer("pause", 500ms, false);
    pause->setSingleShot(true);
    nearScan.setTimer(timer("nearscan", 1ms, false));
    controlsDone();
    questionid->setEnabled(false);
    cmdcancel->setEnabled(false);
    level->setSorted();
    connectControls();
}

void AddQuestions::connectControls()
{
    onChange(question, [this] { addquestions_question_Change(); });
    onTick(pause, [this] { lookForNear(); });
    onTick(nearScan.timer(), [this] { nearScan.slice(); });
    for (std::size_t i = 0; i < answers.size(); ++i)
        onChange(answers[i], [this, i] { addquestions_answer_Change(i); });
    onLostFocus(answers.back(), [this] { fillcorrectanswers(); });
    onGotFocus(correctanswer, [this] { fillcorrectanswers(); });
    onChange(correctanswer, [this] { compare(schema::correctAnswer, correctanswer->chosen()); });
    onChange(level, [this] { compare(schema::level, level->chosen()); });

    onClick(cmdfirst, [this] { addquestions_cmdfirst_Click(); });
    onClick(cmdprevious, [this] { addquestions_cmdprevious_Click(); });
    onClick(cmdnext, [this] { addquestions_cmdnext_Click(); });
    onClick(cmdlast, [this] { addquestions_cmdlast_Click(); });
    onClick(cmdadd, [this] { addquestions_cmdadd_Click(); });
    onClick(cmdsave, [this] { addquestions_cmdsave_Click(); });
    onClick(cmdupdate, [this] { addquestions_cmdupdate_Click(); });
    onClick(cmddelete, [this] { addquestions_cmddelete_Click(); });
    onClick(cmdcancel, [this] { addquestions_cmdcancel_Click(); });
    onClick(cmdexit, [this] { addquestions_cmdexit_Click(); });
}

void AddQuestions::Form_Load()
{
    modified = false;
    openRows(db::statements::allQuestions());
}

void AddQuestions::displayrecord()
{
    const auto stored = [this](const char* field) { return hasRow() ? rows.text(field) : QString(); };
    questionid->setText(stored(schema::questionId));
    question->setText(stored(schema::question));
    note({});
    for (std::size_t i = 0; i < answers.size(); ++i)
        answers[i]->setText(stored(schema::answers[i]));
    correctanswer->clear();
    level->clear();
    for (const char* entry : schema::levels)
        level->append(entry);
    if (!hasRow())
        return;
    for (const char* field : schema::answers)
        correctanswer->append(stored(field));
    const bool former = modified;
    correctanswer->choose(entryFor(stored(schema::correctAnswer)));
    modified = former; // letter case that the list sets right is no change by the owner
    level->choose(stored(schema::level));
}

// The game takes a right answer without regard to letter case.
QString AddQuestions::entryFor(const QString& correctAnswer) const
{
    if (correctanswer->findText(correctAnswer, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0)
        for (int i = 0; i < correctanswer->count(); ++i)
            if (correctanswer->itemText(i).toLower() == correctAnswer.toLower())
                return correctanswer->itemText(i);
    return correctAnswer;
}

void AddQuestions::fillcorrectanswers()
{
    correctanswer->clear();
    for (const toolkit::TextBox* answer : answers)
        correctanswer->append(answer->text());
}

void AddQuestions::compare(const char* field, const QString& shown)
{
    if (!adding && hasRow() && trimmed(rows.text(field)) != trimmed(shown))
        modified = true;
}

void AddQuestions::lookForNear()
{
    const Nearness asked(question->text());
    if (!asked.isTelling())
        return;
    nearScan.begin(
        db::Round(rows, comparedFields),
        [this, asked](const db::Passed& row) {
            const bool itself = !adding && hasRow() && row.place.key == rows.key();
            return !itself && !row.texts.isEmpty() && asked.isNear(row.texts[1]);
        },
        [this](const db::Passed* row) {
            if (row)
                note(QString("The bank has one nearly like it, number %1: %2")
                         .arg(row->texts[0], row->texts[1]));
        });
}

void AddQuestions::note(const QString& text)
{
    near->setText(text);
    question->setAccessibleDescription(text);
}

void AddQuestions::addquestions_question_Change()
{
    compare(schema::question, question->text());
    note({});
    nearScan.stop();
    pause->setEnabled(false);
    const bool typed =
        adding || (hasRow() && trimmed(rows.text(schema::question)) != trimmed(question->text()));
    pause->setEnabled(typed);
}

void AddQuestions::addquestions_answer_Change(std::size_t index)
{
    fillcorrectanswers();
    compare(schema::answers[index], answers[index]->text());
}

void AddQuestions::checkmodified()
{
    if (!adding && modified && confirm("The Current Record has been modified do you wish to Update it?"))
        addquestions_cmdupdate_Click();
    modified = false;
}

void AddQuestions::addquestions_cmdfirst_Click()
{
    checkmodified();
    moveFirst();
}

void AddQuestions::addquestions_cmdprevious_Click()
{
    checkmodified();
    movePrevious();
}

void AddQuestions::addquestions_cmdnext_Click()
{
    checkmodified();
    moveNext();
}

void AddQuestions::addquestions_cmdlast_Click()
{
    checkmodified();
    moveLast();
}

void AddQuestions::addquestions_cmdadd_Click()
{
    adding = true; // so that emptying the boxes does not count as a change
    for (toolkit::TextBox* box : {questionid, question})
        box->clear();
    for (toolkit::TextBox* answer : answers)
        answer->clear();
    correctanswer->clear();
    level->append("");
    level->setCurrentIndex(0);
    setAdding(true);
    focus(question);
}

QuestionEntry AddQuestions::entered() const
{
    QuestionEntry entry;
    entry.question = question->text();
    for (std::size_t i = 0; i < answers.size(); ++i)
        entry.answers[i] = answers[i]->text();
    entry.correctAnswer = correctanswer->chosen();
    entry.level = level->chosen();
    return entry;
}

bool AddQuestions::check(const QuestionEntry& entry)
{
    const QString faults = faultsOf(entry);
    if (!faults.isEmpty())
        notice(faults);
    return faults.isEmpty();
}

void AddQuestions::setFields(const QuestionEntry& entry)
{
    rows.set(schema::question, trimmed(entry.question));
    for (std::size_t i = 0; i < schema::answers.size(); ++i)
        rows.set(schema::answers[i], trimmed(entry.answers[i]));
    rows.set(schema::correctAnswer, trimmed(entry.correctAnswer));
    rows.set(schema::level, entry.level);
}

void AddQuestions::addquestions_cmdsave_Click()
{
    if (!requireAdding())
        return;
    const QuestionEntry entry = entered();
    if (!check(entry))
        return;
    rows.AddNew();
    setFields(entry);
    for (const char* tally : schema::tallies)
        rows.set(tally, 1);
    rows.Update();
    questionid->setText(rows.text(schema::questionId));
    notice("Successfully Saved");
    setAdding(false);
}

void AddQuestions::addquestions_cmdupdate_Click()
{
    if (!requireRow())
        return;
    const QuestionEntry entry = entered();
    if (!check(entry))
        return;
    setFields(entry);
    rows.Update();
    modified = false;
    notice("Record Updated", Icon::Information);
}

void AddQuestions::addquestions_cmddelete_Click()
{
    if (!requireRow() || !confirm("Are you sure ?"))
        return;
    rows.Delete();
    displayrecord(); // nothing, should the first row turn out to be unreadable
    rows.MoveFirst();
    displayrecord();
    notice("Successfully deleted");
}

void AddQuestions::addquestions_cmdcancel_Click()
{
    displayrecord();
    setAdding(false);
}

void AddQuestions::addquestions_cmdexit_Click()
{
    checkmodified();
    screens().close("addquestions");
}

} // namespace admin
