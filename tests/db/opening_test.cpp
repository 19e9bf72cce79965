#include "rows.h"

#include <QDir>
#include <QFile>

#include <sys/fsuid.h>

#include <fstream>

namespace db_test {
namespace {

QByteArray bytesOf(const Bank& bank)
{
    QFile file(bank.path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(Opening, AnUnusableFileIsNamedAndLeftAsItIs)
{
    const QByteArray good = bytesOf(Bank());
    const auto foreign = "it is a file of another kind, or it is damaged. Put";
    const std::tuple<QByteArray, Cause, const char*> cases[] = {
        {{}, Cause::NotADatabase, "the file is empty. Put"},
        {"x", Cause::NotADatabase, foreign},
        {QByteArray("question;answer\n").repeated(4000), Cause::NotADatabase, foreign},
        {QByteArray(good).replace(100, 3000, QByteArray(3000, 'x')), Cause::Damaged,
         "the file is damaged. Replace"},
    };
    for (const auto& [bytes, cause, words] : cases) {
        const Bank bank;
        std::ofstream(bank.path().toStdString(), std::ios::binary) << bytes.toStdString();
        const auto failure = failureOf([&] { connect(bank); });
        EXPECT_EQ(failure.cause(), cause) << failure.what();
        const auto start = QString("The question bank \"%1\" cannot be opened: ").arg(bank.path());
        EXPECT_TRUE(failure.message().startsWith(start + QString::fromLatin1(words))) << failure.what();
        EXPECT_TRUE(bytesOf(bank) == bytes) << words;
        EXPECT_EQ(QDir().entryList(QDir::Files), QStringList("orv.orv"));
    }
    const Bank bank;
    QFile::remove(bank.path());
    EXPECT_EQ(failureOf([&] { connect(bank); }).cause(), Cause::Missing);
    EXPECT_TRUE(QDir().isEmpty());
    QDir().mkdir(bank.path());
    EXPECT_EQ(failureOf([&] { connect(bank); }).cause(), Cause::Unreadable);
}

TEST(Opening, TheBankOfTheCurrentDirectoryIsOpened)
{
    const Bank bank;
    EXPECT_EQ(db::databasepath(), QDir::currentPath() + "/orv.orv");
    QDir(QDir::currentPath()).removeRecursively();
    EXPECT_EQ(failureOf([] { db::databasepath(); }).cause(), Cause::Missing);
    QDir::setCurrent("/");
    EXPECT_EQ(db::databasepath(), "/orv.orv");
}

TEST(Opening, PermissionsDecideWhatCanBeDone)
{
    setfsuid(65534); // permission bits do not bind the superuser
    const Bank bank;
    QFile::setPermissions(bank.path(), QFile::ReadOwner);
    auto rows = open(bank, questionByKey(14));
    EXPECT_EQ(trace(rows, "set update first", "a"), "1 !readonly:1 1");
    QFile::setPermissions(bank.path(), QFile::WriteOwner);
    EXPECT_EQ(failureOf([&] { connect(bank); }).cause(), Cause::Unreadable);
    setfsuid(0);
}

TEST(Opening, ATableThatCannotBeUsedIsRefusedInWords)
{
    const std::tuple<const char*, Cause, const char*> cases[] = {
        {"drop table locking", Cause::NoTable, "it has no usable table named locking. "},
        {"alter table locking rename message to x", Cause::NoField,
         "its table locking has no field named message. "},
        {"drop table locking; create table locking (message primary key) without rowid", Cause::NoTable, ""},
    };
    for (const auto& [script, cause, words] : cases) {
        const Bank bank;
        bank.execute(script);
        const auto failure = failureOf([&] { open(bank, promptMessages()); });
        EXPECT_EQ(failure.cause(), cause) << script;
        EXPECT_TRUE(failure.message().contains(QString::fromLatin1(words))) << failure.what();
    }
}

} // namespace db_test
