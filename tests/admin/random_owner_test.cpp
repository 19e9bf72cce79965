#include "owner.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <random>

namespace admin {

namespace {

using Row = QStringList; // number, question, four answers, right answer, level; without blanks at the ends

const QString screen = "addquestions";
const QStringList controls =
    QString("question answer1 answer2 answer3 answer4 correctanswer level").split(' ');
const QStringList buttons =
    QString("cmdfirst cmdprevious cmdnext cmdlast ?a ?drop cmdadd cmdsave cmdsave cmdupdate "
            "cmdexit cmdcancel cmddelete")
        .split(' ');
const QStringList texts =
    QString("~ ~a~b ~ c~');drop table questions;--~\"q\" `t` [x] /* % _ ? */~line\nbreak\r\n\u2028end~"
            "a\tb\u0001c\u007F\u202E\u05E9\u05DC\u202C~"
            "e\u0301\u0915\u094D\u0937\u093F \U0001F9DE\u200D\u2640\uFE0F \u0130\u00DF\uFB01")
        .split('~');

/// Does whatever comes to mind in the question editor. The file changes only as a box says, into what was
/// shown; an editor that moves shows a row of the file; what was typed is lost only by what is known to drop
/// it.
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
        owner_.screens.show(screen);
        const auto choice = pick(20);
        if (choice < 10) {
            const QList<Row> before = stored();
            const auto first = pick(controls.size());
            for (const QString& control : controls.mid(choice < 7 ? first : 0, choice < 7 ? 1 : -1))
                type(control, texts[choice < 7 ? pick(texts.size()) : 2 + pick(texts.size() - 2)]);
            EXPECT_TRUE(stored() == before) << "written without a button";
            EXPECT_EQ(owner_.told(), "");
        } else if (choice == 10) {
            owner_.form(screen).parentWidget()->close();
        } else if (const QString step = buttons[pick(buttons.size())];
                   step.startsWith('?') || owner_.control<QWidget>(screen, step).isEnabled()) {
            press(step);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList actions;

private:
    qsizetype pick(qsizetype count)
    {
        return std::uniform_int_distribution<qsizetype>(0, count - 1)(random_);
    }

    [[nodiscard]] Row shown() const
    {
        Row row{owner_.control<toolkit::TextBox>(screen, "questionid").text()};
        for (const QString& name : controls)
            row << toolkit::trimmed(owner_.control<QWidget>(screen, name)
                                        .property(name[0] == 'c' || name[0] == 'l' ? "currentText" : "text")
                                        .toString());
        return row;
    }

    [[nodiscard]] QList<Row> stored() const
    {
        QList<Row> rows;
        SQLite::Database file(owner_.bank.path().toStdString());
        SQLite::Statement select(file, "select question_id, question, answer1, answer2, answer3, answer4,"
                                       " correct_answer, Level from questions");
        while (select.executeStep()) {
            rows << Row();
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
        const auto* list = dynamic_cast<toolkit::ChoiceList*>(&owner_.control<QWidget>(screen, control));
        if (!list)
            run(control + "=" + typed);
        else if (list->count() > 0)
            run(control + "#" + QString::number(pick(list->count())));
    }

    void press(const QString& step)
    {
        const bool adding = !owner_.control<QWidget>(screen, "cmdadd").isEnabled();
        // As a click does, before the handler looks at the boxes.
        owner_.control<QWidget>(screen, step.startsWith('?') ? "cmdexit" : step)
            .setFocus(Qt::MouseFocusReason);
        const QList<Row> before = stored();
        const Row typed = shown();
        owner_.answers = pick(step == "cmddelete" ? 4 : 2) ? "n" : "y";
        run(step);
        owner_.answers.clear();

        const QString told = owner_.told();
        const bool moves =
            told.contains("?Found") || QString("cmdfirst cmdprevious cmdnext cmdlast").contains(step);
        const bool open = owner_.screens.find(screen);
        const QList<Row> after = stored();
        QList<Row> fresh = after, gone = before;
        fresh.removeIf([&](const Row& row) { return before.contains(row); });
        gone.removeIf([&](const Row& row) { return after.contains(row); });
        if (told.contains("Saved"))
            EXPECT_TRUE(gone.isEmpty() && fresh == QList<Row>({Row(shown().first(1)) + typed.mid(1)}));
        else if (told.contains("Updated"))
            EXPECT_TRUE(fresh.size() == gone.size() && after.contains(typed));
        else
            EXPECT_EQ(fresh.size() + gone.size(), told.contains("deleted"));

        const bool unchanged = std::ranges::any_of(before, [&](Row row) {
            if (typed[6].isEmpty()) // entering the list empties it, which is no change
                row[6].clear();
            return row == typed;
        });
        if ((moves || !open) && !adding && !before.isEmpty() && !unchanged)
            EXPECT_TRUE(told.contains("do you wish to Update it?"));
        if (open && (moves || step == "cmdcancel" || told.contains("Successfully")))
            EXPECT_TRUE(after.isEmpty() || after.contains(shown()));
        else if (open && step != "cmdadd")
            EXPECT_EQ(shown(), typed);
    }

    std::mt19937 random_;
    Owner owner_;
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
