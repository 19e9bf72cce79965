#include "bank.h"

#include <QDir>
#include <QFile>

#include <SQLiteCpp/Statement.h>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <tuple>

namespace db_test {
namespace {

using namespace db::statements;

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void overwrite(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
}

/// Permission bits do not bind the superuser, so the tests about them run as somebody else.
class OrdinaryUser
{
public:
    OrdinaryUser() : given_(geteuid() == 0 && setresuid(nobody, nobody, 0) == 0) {}
    ~OrdinaryUser()
    {
        if (given_) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    static void own(const QString& path)
    {
        if (geteuid() == 0) {
            EXPECT_EQ(chown(path.toUtf8().constData(), nobody, nobody), 0);
        }
    }

private:
    static constexpr uid_t nobody = 65534;
    bool given_;
};

TEST(Opening, AnUnusableFileIsNamedAndLeftAsItIs)
{
    const auto replaced = [](const QByteArray& bytes) {
        return [bytes](const QString& path) { overwrite(path, bytes); };
    };
    const auto cut = [](qsizetype size) {
        return [size](const QString& path) { overwrite(path, bytesOf(path).left(size)); };
    };
    using Spoil = std::function<void(const QString&)>;
    const std::tuple<const char*, Spoil, Cause, const char*> cases[] = {
        {"missing", [](const QString& path) { QFile::remove(path); }, Cause::Missing,
         "the file is missing. Put"},
        {"folder", [](const QString& path) { QFile::remove(path), QDir().mkdir(path); }, Cause::Unreadable,
         "there is a folder of this name. Move"},
        {"pipe", [](const QString& path) { QFile::remove(path), mkfifo(path.toUtf8().constData(), 0600); },
         Cause::Unreadable, "it is not an ordinary file. Put"},
        {"empty", replaced({}), Cause::NotADatabase, "the file is empty. Put"},
        {"one byte", replaced("x"), Cause::NotADatabase, "it is a file of another kind"},
        {"short text", replaced("question;answer\n"), Cause::NotADatabase, "it is a file of another kind"},
        {"long text", replaced(QByteArray("question;answer\n").repeated(4000)), Cause::NotADatabase,
         "it is a file of another kind"},
        {"page size", replaced(QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\x7f')),
         Cause::NotADatabase, "or it is damaged. Put"},
        {"cut off", cut(5000), Cause::Damaged, "the file is damaged. Replace"},
        {"header only", cut(100), Cause::Damaged, "the file is damaged. Replace"},
        {"scrambled",
         [](const QString& path) {
             overwrite(path, bytesOf(path).replace(100, 3000, QByteArray(3000, 'x')));
         },
         Cause::Damaged, "the file is damaged. Replace"},
    };
    for (const auto& [name, spoil, cause, words] : cases) {
        SCOPED_TRACE(name);
        const Bank bank;
        spoil(bank.path());
        const bool isFile = QFileInfo(bank.path()).isFile();
        const QByteArray before = isFile ? bytesOf(bank.path()) : QByteArray();
        const auto files = QDir(bank.folder()).entryList();
        const auto failure = failureOf([&] { connect(bank); });
        EXPECT_EQ(failure.cause(), cause);
        const std::string start =
            "The question bank \"" + bank.path().toStdString() + "\" cannot be opened: ";
        const std::string message = failure.what();
        EXPECT_TRUE(message.starts_with(start) && message.find(words) != std::string::npos) << message;
        EXPECT_EQ(QDir(bank.folder()).entryList(), files);
        EXPECT_TRUE(!isFile || bytesOf(bank.path()) == before);
    }
}

TEST(Opening, DamageBehindTheFirstPageIsFoundWhereItIsRead)
{
    const Bank bank;
    const qsizetype page =
        std::stoi(bank.read("select rootpage from sqlite_master where name = 'questions'"));
    overwrite(bank.path(), bytesOf(bank.path()).replace((page - 1) * 4096, 4096, QByteArray(4096, 'x')));
    auto connection = connect(bank);
    EXPECT_EQ(causeOf([&] { connection.Execute(allQuestions()); }), Cause::Damaged);
    EXPECT_EQ(connection.Execute(promptMessages()).text("message"), QStringLiteral("sure?"));
}

TEST(Opening, TheBankOfTheCurrentDirectoryIsOpened)
{
    const QString home = QDir::currentPath();
    const Bank one;
    const Bank two("create table locking (message text); insert into locking values ('second bank')");
    const auto message = [] { return db::opendatabase()->Execute(promptMessages()).text("message"); };
    QDir::setCurrent(one.folder());
    EXPECT_EQ(message(), QStringLiteral("sure?"));
    QDir::setCurrent(two.folder());
    EXPECT_EQ(message(), QStringLiteral("second bank"));
    EXPECT_EQ(db::databasepath(), QDir(two.folder()).canonicalPath() + QStringLiteral("/orv.orv"));
    QDir::setCurrent(QStringLiteral("/"));
    EXPECT_EQ(db::databasepath(), QStringLiteral("/orv.orv"));
    {
        const QTemporaryDir gone;
        QDir::setCurrent(gone.path());
    }
    EXPECT_EQ(causeOf([] { db::databasepath(); }), Cause::Missing);
    QDir::setCurrent(home);
}

TEST(Opening, PermissionsDecideWhatCanBeDone)
{
    const auto r = QFile::ReadOwner;
    const auto rw = r | QFile::WriteOwner;
    const auto x = QFile::ExeOwner; // an opening that succeeds is Cause::Other below
    const std::tuple<const char*, QFile::Permissions, QFile::Permissions, Cause, Cause> cases[] = {
        {"file not readable", QFile::WriteOwner, rw | x, Cause::Unreadable, {}},
        {"folder not to be entered", rw, r, Cause::Unreadable, {}},
        {"file read-only", r, rw | x, Cause::Other, Cause::ReadOnly},
        {"folder read-only", rw, r | x, Cause::Other, Cause::ReadOnly},
    };
    for (const auto& [name, file, folder, opening, writing] : cases) {
        SCOPED_TRACE(name);
        const Bank bank;
        OrdinaryUser::own(bank.path());
        OrdinaryUser::own(bank.folder());
        const OrdinaryUser user;
        QFile::setPermissions(bank.path(), file);
        QFile::setPermissions(bank.folder(), folder);
        if (opening != Cause::Other) {
            EXPECT_EQ(causeOf([&] { connect(bank); }), opening);
        } else {
            auto rows = open(questionById(4), connect(bank));
            rows.set("a", 9);
            EXPECT_EQ(causeOf([&] { rows.Update(); }), writing);
            EXPECT_EQ(trace(rows, "first", "a"), "5");
        }
        QFile::setPermissions(bank.folder(), rw | x);
    }
}

} // namespace
} // namespace db_test
