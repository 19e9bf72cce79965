#include "owner.h"

#include "support/seed.h"

#include <QRegularExpression>

#include <random>

namespace admin {

namespace {

const QString screen = "addquestions";
const QStringList controls =
    QString("question answer1 answer2 answer3 answer4 correctanswer level").split(' ');
const QStringList buttons =
    QString(
        "cmdfirst cmdprevious cmdnext cmdlast ?a ?drop cmdadd cmdsave cmdsave cmdupdate cmdexit cmdcancel "
        "cmddelete")
        .split(' ');
const QStringList texts =
    QString("~ ~a~b ~ c~');drop table questions;--~\"q\" `t` [x] /* % _ ? */~break\r\u2028end~"
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
        const QStringList before = stored();
        const auto choice = pick(20);
        const QString& step = buttons[pick(buttons.size())];
        if (choice < 7)
            type(pick(controls.size()), pick(texts.size()));
        else if (choice < 10)
            for (qsizetype i = 0; i < controls.size(); ++i)
                type(i, 2 + pick(texts.size() - 2));
        else if (choice == 10)
            owner_.form(screen).parentWidget()->close();
        else if (step.startsWith('?') || owner_.control<QWidget>(screen, step).isEnabled())
            press(step, before);
        if (choice <= 10)
            EXPECT_EQ(stored(), before) << "written without a button";
        EXPECT_EQ(owner_.told(), "");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList actions;

private:
    qsizetype pick(qsizetype count)
    {
        return std::uniform_int_distribution<qsizetype>(0, count - 1)(random_);
    }

    // Rows are kept without blanks.
    [[nodiscard]] QString shown() const
    {
        QString row = owner_.shown(screen).section('|', 0, 5);
        for (const char* list : {"correctanswer", "level"})
            row += '|' + owner_.control<toolkit::ChoiceList>(screen, list).chosen();
        return row.remove(' ');
    }

    [[nodiscard]] QStringList stored() const
    {
        return owner_.stored(screen)
            .remove(' ')
            .replace(QRegularExpression("\\|\\d*(?=\n|$)"), "")
            .split('\n');
    }

    void run(const QString& step)
    {
        actions << step + " " + owner_.answers.c_str();
        owner_.run(step, screen);
    }

    void type(qsizetype control, qsizetype text)
    {
        run(controls[control] + (control < 5 ? "=" + texts[text] : "#" + QString::number(pick(3))));
    }

    void press(const QString& step, const QStringList& before)
    {
        const bool adding = !owner_.control<QWidget>(screen, "cmdadd").isEnabled();
        // As a click does, before the handler looks at the boxes.
        owner_.control<QWidget>(screen, step.startsWith('?') ? "cmdexit" : step)
            .setFocus(Qt::MouseFocusReason);
        const QString typed = shown();
        owner_.answers = pick(step == "cmddelete" ? 4 : 2) ? "n" : "y";
        run(step);
        owner_.answers.clear();
        const QString told = QString::fromStdString(owner_.told());
        const bool open = owner_.screens.find(screen);
        const bool moves =
            told.contains("?Found") || QString("cmdfirst cmdprevious cmdnext cmdlast").contains(step);

        const QStringList after = stored();
        QStringList fresh = after, gone = before;
        fresh.removeIf([&](const QString& row) { return row.isEmpty() || before.contains(row); });
        gone.removeIf([&](const QString& row) { return row.isEmpty() || after.contains(row); });
        if (told.contains("Saved"))
            EXPECT_TRUE(gone.isEmpty() &&
                        fresh == QStringList(shown().section('|', 0, 0) + '|' + typed.section('|', 1)));
        else if (told.contains("Updated"))
            EXPECT_TRUE(fresh.size() == gone.size() && after.contains(typed));
        else
            EXPECT_EQ(fresh.size() + gone.size(), told.contains("deleted"));

        const bool changed = std::ranges::none_of(before, [&](const QString& row) {
            // Entering the list of right answers empties it, which is no change.
            return row == typed || row.section('|', 0, 5) + "||" + row.section('|', 7) == typed;
        });
        if ((moves || !open) && !adding && changed && before != QStringList(""))
            EXPECT_TRUE(told.contains("do you wish to Update it?"));
        if (open && (moves || step == "cmdcancel" || told.contains("Successfully")))
            EXPECT_TRUE(after == QStringList("") || after.contains(shown())) << shown().toStdString();
        else if (open && step != "cmdadd")
            EXPECT_EQ(shown(), typed);
    }

    std::mt19937 random_;
    Owner owner_;
};

} // namespace

TEST(RandomOwner, ChangesOnlyWhatWasAskedFor)
{
    constexpr int actions = 8000;
    const int seed = support::seed(0);
    RandomOwner owner(static_cast<unsigned>(seed));
    for (int action = 0; action < actions; ++action) {
        owner.act();
        ASSERT_FALSE(HasFailure()) << "seed " << seed << ", action " << action << ", after:\n"
                                   << owner.actions.mid(owner.actions.size() - 60).join('\n').toStdString();
    }
}

} // namespace admin
