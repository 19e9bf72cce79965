#include "player.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace desk {

namespace {

struct BadBank
{
    std::string name;
    const char* harm; ///< done to a good bank
    const char* reason;
};

const BadBank badBanks[] = {
    {"Missing", "", "the file is missing"},
    {"NoBank", "", "cannot be"},
    {"LockedByAnother", "", "another program is using it"},
    {"NoCorrectAnswer", "alter table questions drop column correct_answer", "correct_answer"},
    {"NoQuestionOfLevel1", "delete from questions where Level = '1'", "too few questions of level 1"},
};

QByteArray bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

} // namespace

class BadBanks : public Player, public testing::WithParamInterface<BadBank>
{
};

TEST_P(BadBanks, AreToldAndLedOutOfUnchanged)
{
    const auto [name, harm, reason] = GetParam();
    bank.execute(harm);
    QFile file(bank.path());
    if (name == "Missing") {
        file.remove();
        files.clear();
    } else if (name == "NoBank") {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("Once upon a time there was a quiz.\n");
        file.close();
    }
    const QByteArray before = bytes(bank.path());
    std::unique_ptr<SQLite::Database> holder;
    if (name == "LockedByAnother") {
        holder = std::make_unique<SQLite::Database>(bank.path().toStdString(), SQLite::OPEN_READWRITE);
        holder->exec("begin exclusive");
    }
    begin();
    beyondRules();
    if (desk->until("a box or the name prompt",
                    [](const Scene& now) { return now.shows("box") || now.shows("prompt"); })
            .shows("prompt"))
        desk->enterName("Guest");
    const ShownWindow told = desk->answer("OK");
    EXPECT_NE(told.text.indexOf(bank.path()), -1) << told.text.toStdString();
    EXPECT_NE(told.text.indexOf(reason), -1) << told.text.toStdString();
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->untilOnly("thank");
    holder.reset();
    EXPECT_EQ(bytes(bank.path()), before);
}

INSTANTIATE_TEST_SUITE_P(Banks, BadBanks, testing::ValuesIn(badBanks),
                         [](const auto& test) { return test.param.name; });

} // namespace desk
