#include "owner.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <random>

namespace admin {

using toolkit::ChoiceList;
using toolkit::TextBox;

namespace {

using Rows = QList<QStringList>;

const QString screen = "addquestions";
const QStringList controls = {"question", "answer1",       "answer2", "answer3",
                              "answer4",  "correctanswer", "level"};
const QStringList buttons = {"cmdfirst", "cmdprevious", "cmdnext",   "cmdlast", "cmdadd",   "cmdsave",
                             "cmdsave",  "cmdupdate",   "cmdcancel", "cmdexit", "cmddelete"};
const QStringList texts = {"",
                           " ",
                           "a",
                           "b ",
                           " c",
                           "long enough",
                           "');drop table questions;--",
                           "\"q\" `t` [x] /* % _ ? */",
                           "a\tb\u0001c\u007F\u202E\u05E9\u05DC\u202C",
                           "e\u0301\u0915\u094D\u0937\u093F \U0001F9DE\u200D\u2640\uFE0F \u0130\u00DF\uFB01",
                           "line\nbreak\r\n\u2028end"};

std::string text(const Rows& rows)
{
    QStringList lines;
    for (const QStringList& row : rows)
        lines << row.join('|');
    return lines.join('\n').toStdString();
}

/// Does whatever comes to mind in the question editor. Only what was asked for changes the file, the row that
/// is shown is the one that was gone to, and what was typed is lost only by what is known to drop it. Blanks
/// at the ends do not count.
class RandomOwner
{
public:
    explicit RandomOwner(unsigned seed) : random_(seed)
    {
        owner_.bank.execute(
            "update questions set answer3 = 'g', correct_answer = 'e', Level = '2' where question_id = 2");
        owner_.open({});
    }

    void act()
    {
        if (!owner_.screens.find(screen)) {
            owner_.screens.show(screen);
            at_ = 0;
        }
        const Rows before = stored();
        const auto choice = pick(20);
        if (choice < 7)
            type(controls[pick(controls.size())], texts[pick(texts.size())]);
        else if (choice < 10)
            for (const QString& control : controls)
                type(control, texts[2 + pick(texts.size() - 2)]);
        else if (choice == 10)
            owner_.form(screen).parentWidget()->close();
        else
            press(buttons[pick(buttons.size())], before);
        if (choice <= 10)
            EXPECT_EQ(text(stored()), text(before)) << "written without a button";
        EXPECT_EQ(owner_.boxes(), "");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList actions;

private:
    qsizetype pick(qsizetype count)
    {
        return std::uniform_int_distribution<qsizetype>(0, count - 1)(random_);
    }

    [[nodiscard]] QStringList shown() const
    {
        QStringList row{owner_.control<TextBox>(screen, "questionid").text()};
        for (const QString& name : controls) {
            const auto* list = dynamic_cast<ChoiceList*>(&owner_.control<QWidget>(screen, name));
            row << toolkit::trimmed(list ? list->chosen() : owner_.control<TextBox>(screen, name).text());
        }
        return row;
    }

    [[nodiscard]] Rows stored() const
    {
        Rows rows;
        SQLite::Database file(owner_.bank.path().toStdString());
        SQLite::Statement select(file, "select question_id, question, answer1, answer2, answer3, answer4,"
                                       " correct_answer, Level from questions");
        while (select.executeStep()) {
            rows << QStringList();
            for (int i = 0; i < select.getColumnCount(); ++i)
                rows.back() << toolkit::trimmed(QString::fromStdString(select.getColumn(i).getString()));
        }
        return rows;
    }

    void run(const QString& step)
    {
        actions << step + " " + owner_.answers.c_str();
        owner_.run(screen, step);
    }

    void type(const QString& control, const QString& typed)
    {
        const auto* list = dynamic_cast<ChoiceList*>(&owner_.control<QWidget>(screen, control));
        if (!list)
            run(control + "=" + typed);
        else if (list->count() > 0)
            run(control + "#" + QString::number(pick(list->count())));
    }

    void press(const QString& button, Rows rows)
    {
        auto& pressed = owner_.control<QWidget>(screen, button);
        if (!pressed.isEnabled())
            return;
        const bool adding = !owner_.control<QWidget>(screen, "cmdadd").isEnabled();
        pressed.setFocus(Qt::MouseFocusReason); // as a click does, before the handler looks at the boxes
        const QStringList typed = shown();
        QStringList changed = typed;
        if (changed[6].isEmpty() && !rows.empty()) // entering the list empties it, which is no change
            changed[6] = rows[at_][6];
        owner_.answers = pick(button == "cmddelete" ? 4 : 2) ? "n" : "y";
        run(button);
        owner_.answers.clear();

        const std::string told = owner_.boxes();
        const auto tells = [&told](const char* words) { return told.find(words) != std::string::npos; };
        const bool open = owner_.screens.find(screen);
        const bool moves = QString("cmdfirst cmdprevious cmdnext cmdlast").contains(button);
        if ((moves || !open) && !adding && !rows.empty() && changed != rows[at_])
            EXPECT_TRUE(tells("do you wish to Update it?"));
        if (tells("Saved")) {
            rows << (QStringList{shown().front()} + typed.mid(1));
            at_ = rows.size() - 1;
        } else if (tells("Updated")) {
            rows[at_] = typed;
        } else if (tells("deleted")) {
            rows.removeAt(std::exchange(at_, 0));
        }
        EXPECT_EQ(text(stored()), text(rows));
        if (moves && !rows.empty())
            at_ = button == "cmdfirst" ? 0
                  : button == "cmdlast"
                      ? rows.size() - 1
                      : std::clamp(at_ + (button == "cmdnext" ? 1 : -1), qsizetype{0}, rows.size() - 1);
        const bool displays = moves || button == "cmdcancel" || tells("Successfully");
        if (open && button != "cmdadd" && !(displays && rows.empty()))
            EXPECT_EQ(text({shown()}), text({displays ? rows[at_] : typed}));
    }

    std::mt19937 random_;
    Owner owner_;
    qsizetype at_ = 0; ///< the row that is to be shown
};

} // namespace

TEST(RandomOwner, ChangesOnlyWhatWasAskedFor)
{
    const int actions = qEnvironmentVariable("ORVANTA_OWNER_ACTIONS", "8000").toInt();
    const int seed = qEnvironmentVariable("ORVANTA_OWNER_SEED", "0").toInt();
    RandomOwner owner(static_cast<unsigned>(seed));
    for (int action = 0; action < actions; ++action) {
        owner.act();
        ASSERT_FALSE(HasFailure()) << "seed " << seed << ", action " << action << ", after:\n"
                                   << owner.actions.mid(owner.actions.size() - 60).join('\n').toStdString();
    }
}

} // namespace admin
