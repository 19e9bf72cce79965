#include "player.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace desk {

namespace {

enum class Course {
    NoGame,     ///< a box before the game begins, then the farewell
    StopsAtSix, ///< the game stops when it needs a question of level 2
    GoesOn      ///< a box when an option is chosen, and the game goes on
};

struct BadBank
{
    const char* name;
    std::string sql = {};                    ///< done to a good bank
    std::optional<QByteArray> contents = {}; ///< the file's, instead
    const char* reason = "";                 ///< part of the box's text
    Course course = Course::NoGame;
    bool missing = false;
    bool locked = false;
};

std::ostream& operator<<(std::ostream& out, const BadBank& bad)
{
    return out << bad.name;
}

const std::vector<BadBank> badBanks = {
    {.name = "Missing", .reason = "the file is missing", .missing = true},
    {.name = "Empty", .contents = "", .reason = "cannot be"},
    {.name = "Text", .contents = "Once upon a time there was a quiz.\n", .reason = "cannot be"},
    {.name = "NoMessageTable", .sql = "drop table locking", .reason = "locking"},
    {.name = "NoCorrectAnswer",
     .sql = "alter table questions drop column correct_answer",
     .reason = "correct_answer"},
    {.name = "NoQuestionOfLevel1",
     .sql = "delete from questions where Level = '1'",
     .reason = "too few questions of level 1"},
    {.name = "LockedByAnother", .reason = "another program is using it", .locked = true},
    {.name = "NoQuestionOfLevel2",
     .sql = "delete from questions where Level = '2'",
     .reason = "too few questions of level 2",
     .course = Course::StopsAtSix},
    {.name = "NoMessages",
     .sql = "delete from locking",
     .reason = "no prompt message",
     .course = Course::GoesOn},
};

QByteArray bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

} // namespace

class BadBanks : public Player, public testing::WithParamInterface<BadBank>
{
protected:
    void spoil(const BadBank& bad)
    {
        if (!bad.sql.empty())
            bank.execute(bad.sql);
        if (bad.missing) {
            QFile::remove(bank.path());
            files.clear();
        }
        if (bad.contents) {
            QFile file(bank.path());
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(*bad.contents);
        }
        before_ = bytes(bank.path());
        // From here on: opening the file beside the engine would end this lock.
        if (bad.locked) {
            holder_ = std::make_unique<SQLite::Database>(bank.path().toStdString(), SQLite::OPEN_READWRITE);
            holder_->exec("begin exclusive");
        }
    }

    /// Past the name prompt, if the game gets as far as to ask.
    void toFirstBox()
    {
        toRules();
        desk->display->press(Display::Return);
        const Scene scene = desk->until("a box or the name prompt", [](const Scene& now) {
            return !now.boxes.empty() || (now.prompt && now.prompt->ready);
        });
        if (scene.prompt)
            desk->enterName("Guest");
    }

    void TearDown() override
    {
        holder_.reset();
        if (GetParam().course == Course::NoGame) {
            EXPECT_EQ(bytes(bank.path()), before_);
        }
        Player::TearDown();
    }

private:
    std::unique_ptr<SQLite::Database> holder_;
    QByteArray before_;
};

TEST_P(BadBanks, AreToldAndLedOutOf)
{
    const BadBank& bad = GetParam();
    spoil(bad);
    begin();
    if (bad.course == Course::NoGame) {
        toFirstBox();
    } else {
        toQuestion();
        if (bad.course == Course::StopsAtSix) {
            winTo(5);
            desk->click("orv", "cmdok");
        } else {
            desk->click("orv", "option1");
        }
    }

    const Box told = desk->answer("OK");
    EXPECT_NE(told.text.indexOf(bank.path()), -1) << told.text.toStdString();
    EXPECT_NE(told.text.indexOf(bad.reason), -1) << told.text.toStdString();
    EXPECT_EQ(told.title, "Orvanta");

    if (bad.course == Course::StopsAtSix) {
        desk->until("the way out", [this](const Scene& scene) {
            return scene.at("orv").control("cmdokquit").focus && desk->hasKeyboard(scene.at("orv").window);
        });
        EXPECT_EQ(says().toStdString(), "Total Prize Money Rs. 10,000");
        desk->display->press(Display::Return);
    } else if (bad.course == Course::GoesOn) {
        EXPECT_EQ(desk->answer("No").text.toStdString(), "Guest shall I lock your answer?");
        desk->click("orv", "leave");
        desk->answer("Yes");
        desk->click("orv", "cmdokquit");
    }
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->until("the thanks alone", [](const Scene& scene) { return scene.screens() == "thank"; });
}

INSTANTIATE_TEST_SUITE_P(Banks, BadBanks, testing::ValuesIn(badBanks),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace desk
