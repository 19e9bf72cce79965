#include "player.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace desk {

class BadBanks : public Player, public testing::WithParamInterface<const char*>
{
};

TEST_P(BadBanks, AreToldAndLedOutOfUnchanged)
{
    const std::string reason = GetParam();
    const auto bytes = [this] {
        QFile file(bank.path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QFile file(bank.path());
    if (reason == "the file is missing") {
        file.remove();
        files.clear();
    } else if (reason == "cannot be" && file.open(QIODevice::WriteOnly)) {
        file.write("Once upon a time there was a quiz.");
        file.close();
    }
    const QByteArray before = bytes(); // ahead of the lock, which this would end
    std::unique_ptr<SQLite::Database> holder;
    if (reason == "another program is using it") {
        holder = std::make_unique<SQLite::Database>(bank.path().toStdString(), SQLite::OPEN_READWRITE);
        holder->exec("begin exclusive");
    }
    begin();
    beyondRules();
    const std::string told = desk->answer("OK").summary();
    EXPECT_NE(told.find(bank.path().toStdString()), std::string::npos) << told;
    EXPECT_NE(told.find(reason), std::string::npos) << told;
    EXPECT_EQ(desk->answer("OK").summary(), farewell);
    desk->untilOnly("thank");
    holder.reset();
    EXPECT_EQ(bytes(), before);
}

INSTANTIATE_TEST_SUITE_P(Banks, BadBanks,
                         testing::Values("the file is missing", "cannot be", "another program is using it"));

} // namespace desk
