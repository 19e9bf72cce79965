#include "owner.h"

#include <QApplication>
#include <SQLiteCpp/SQLiteCpp.h>

#include <random>

namespace admin {

using toolkit::ChoiceList;
using toolkit::TextBox;

namespace {

constexpr int fullRun = 12000;

using Row = std::vector<std::string>;
using Table = std::map<int, Row>; ///< by row number

/// Does whatever comes to mind in the editors: only what was asked for changes the file, and what was typed
/// is lost only by what is known to drop it.
class RandomOwner
{
public:
    explicit RandomOwner(unsigned seed) : random_(seed)
    {
        owner_.bank.execute(
            "update questions set answer3 = 'g', correct_answer = 'E', Level = '2' where question_id = 2");
        owner_.open({"changepassword"});
    }

    void act()
    {
        screen_ = pick(3) ? "addquestions" : "messages";
        if (!owner_.screens.find(screen_)) {
            owner_.screens.show(screen_);
            if (questions())
                modified_ = false;
        }
        const Table before = stored();
        const int choice = pick(30);
        if (choice < 13)
            type(static_cast<std::size_t>(pick(static_cast<int>(boxNames().size()))));
        else if (choice < 16)
            for (std::size_t box = 0; box < boxNames().size(); ++box)
                type(box, 2);
        else if (choice == 16)
            owner_.form(screen_).parentWidget()->close();
        else
            press(before);
        if (choice <= 16)
            EXPECT_EQ(stored(), before) << "written without a button";
        EXPECT_EQ(owner_.dialogs.take(), "");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::string lastActions;

private:
    int pick(int count) { return std::uniform_int_distribution(0, count - 1)(random_); }
    [[nodiscard]] bool questions() const { return screen_ == "addquestions"; }
    [[nodiscard]] bool enabled(const char* button) const
    {
        return owner_.control<QWidget>(screen_, button).isEnabled();
    }
    [[nodiscard]] std::vector<const char*> boxNames() const
    {
        if (!questions())
            return {"message"};
        return {"question", "answer1", "answer2", "answer3", "answer4", "correctanswer", "level"};
    }

    [[nodiscard]] Row shown() const
    {
        Row row;
        for (const char* name : boxNames()) {
            auto& control = owner_.control<QWidget>(screen_, name);
            const auto* list = dynamic_cast<ChoiceList*>(&control);
            const QString text = list ? list->chosen() : dynamic_cast<TextBox&>(control).text();
            row.push_back((questions() ? toolkit::trimmed(text) : text).toStdString());
        }
        return row;
    }
    [[nodiscard]] int shownId() const
    {
        return questions() ? owner_.control<TextBox>(screen_, "questionid").text().toInt() : 0;
    }

    [[nodiscard]] Table stored() const
    {
        Table table;
        SQLite::Database file(owner_.bank.path().toStdString());
        SQLite::Statement rows(file, questions() ? "select question_id, question, answer1, answer2, answer3,"
                                                   " answer4, correct_answer, Level from questions"
                                                 : "select rowid, message from locking");
        while (rows.executeStep())
            for (int i = 1; i < rows.getColumnCount(); ++i)
                table[rows.getColumn(0).getInt()].push_back(rows.getColumn(i).getString());
        return table;
    }

    void type(std::size_t box, int firstText = 0)
    {
        static const char* const texts[] = {
            "", " ", "a", "b ", " c", "D", "it's;--", "\u05E9\u05DC", "long enough"};
        const QString name = boxNames()[box];
        const bool isList = name == "correctanswer" || name == "level";
        const int count = isList ? owner_.control<ChoiceList>(screen_, name).count() : 0;
        if (isList && count == 0)
            return;
        const auto* text = texts[firstText + pick(static_cast<int>(std::size(texts)) - firstText)];
        const QString step = isList ? QString("%1#%2").arg(name).arg(pick(count))
                                    : QString("%1=%2").arg(name, QString::fromUtf8(text));
        note(step);
        owner_.run(screen_, step);
        const Table table = stored();
        if (questions() && enabled("cmdadd") && table.contains(shownId()) &&
            toolkit::trimmed(QString::fromStdString(table.at(shownId())[box])).toStdString() != shown()[box])
            modified_ = true;
    }

    void press(const Table& before)
    {
        static const char* const buttons[] = {"cmdfirst",  "cmdprevious", "cmdnext",  "cmdlast",
                                              "cmdadd",    "cmdsave",     "cmdsave",  "cmdupdate",
                                              "cmdcancel", "cmdexit",     "cmddelete"};
        const std::string button = buttons[pick(questions() ? 11 : 10)];
        if (!enabled(button.c_str()))
            return;
        const bool moves =
            button == "cmdfirst" || button == "cmdprevious" || button == "cmdnext" || button == "cmdlast";
        const bool adding = !enabled("cmdadd");
        const bool yes = pick(button == "cmddelete" ? 4 : 2) == 0;
        owner_.dialogs.answers = yes ? "y" : "n";
        auto& control = owner_.control<toolkit::Button>(screen_, QString::fromStdString(button));
        control.setFocus(Qt::MouseFocusReason); // as a click does, before the handler looks at the boxes
        const Row typed = shown();
        const int id = shownId();
        note(QString::fromStdString(button + (yes ? " y" : " n")));

        control.click();
        const std::string told = owner_.dialogs.take();
        const auto tells = [&told](const char* words) { return told.find(words) != std::string::npos; };
        const bool open = owner_.screens.find(screen_);
        EXPECT_EQ(tells("do you wish to Update it?"),
                  questions() && modified_ && !adding && (moves || button == "cmdexit"));
        checkWritten(before, typed, id, tells("Successfully Saved"), tells("Updated"),
                     tells("Successfully deleted"));
        const bool whole = std::ranges::none_of(typed, [](const std::string& text) {
            return toolkit::trimmed(QString::fromStdString(text)).isEmpty();
        });
        EXPECT_EQ(tells("Successfully Saved"), button == "cmdsave" && adding && whole);
        if (button == "cmdupdate")
            EXPECT_EQ(tells("pdated"), whole && !before.empty());
        if (questions() && (moves || button == "cmdexit" || tells("Record Updated")))
            modified_ = false;
        if (open && (moves || button == "cmdcancel" || tells("Successfully deleted")))
            checkShown();
        else if (open && button != "cmdadd")
            EXPECT_EQ(shown(), typed) << "what was typed is lost";
        owner_.dialogs.answers.clear();
    }

    void checkWritten(const Table& before, const Row& typed, int id, bool saved, bool updated, bool deleted)
    {
        const Table after = stored();
        EXPECT_EQ(after.size(), before.size() + (saved ? 1 : 0) - (deleted ? 1 : 0));
        int changes = 0;
        for (const auto& [key, row] : after) {
            if (before.contains(key) && before.at(key) == row)
                continue;
            ++changes;
            EXPECT_EQ(row, typed);
            if (questions())
                EXPECT_EQ(key, saved ? shownId() : id) << "another row than the one shown";
        }
        EXPECT_LE(changes, saved || updated ? 1 : 0);
        if (deleted && id != 0)
            EXPECT_FALSE(after.contains(id));
    }

    void checkShown() const
    {
        const Table table = stored();
        Row row = shown();
        if (table.empty())
            return;
        if (!questions()) {
            EXPECT_TRUE(std::ranges::any_of(table, [&](const auto& each) { return each.second == row; }));
            return;
        }
        ASSERT_TRUE(table.contains(shownId()));
        Row kept = table.at(shownId());
        for (std::string& text : kept)
            text = toolkit::trimmed(QString::fromStdString(text)).toStdString();
        if (kept[5] == "E") // chosen in another letter case
            kept[5] = row[5] == "e" ? "e" : "E";
        EXPECT_EQ(row, kept);
    }

    void note(const QString& what)
    {
        lastActions += (screen_ + " " + what + "; ").toStdString();
        if (lastActions.size() > 1500)
            lastActions.erase(0, 500);
    }

    std::mt19937 random_;
    Owner owner_;
    QString screen_;
    bool modified_ = false; ///< a value of the question that is shown has been changed
};

} // namespace

TEST(RandomOwner, ChangesOnlyWhatWasAskedFor)
{
    const int actions = qEnvironmentVariableIntValue("ORVANTA_OWNER_ACTIONS");
    const int seed = qEnvironmentVariableIntValue("ORVANTA_OWNER_SEED");
    RandomOwner owner(static_cast<unsigned>(seed));
    for (int action = 0; action < (actions ? actions : fullRun); ++action) {
        owner.act();
        ASSERT_FALSE(testing::Test::HasFailure())
            << "seed " << seed << ", action " << action << ", after: " << owner.lastActions;
    }
}

} // namespace admin
