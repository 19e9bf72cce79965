#include "bank/accounts.h"

#include "bank/actions.h"
#include "bank/text.h"

#include <QStringDecoder>

#include <bsd/readpassphrase.h>

#include <algorithm>
#include <ostream>
#include <random>

namespace bank {
namespace {

using db::schema::users;

QString fault(const QString& what, const QString& text)
{
    if (text.isEmpty())
        return QString("the %1 is empty").arg(what);
    if (length(text) > db::schema::accountLimit)
        return QString("the %1 has %2 characters, at most %3 fit")
            .arg(what)
            .arg(length(text))
            .arg(db::schema::accountLimit);
    return strayCharacter(text) ? QString("the %1 holds a control character").arg(what) : QString();
}

void requirePresence(Store& store, const std::string& name, bool wanted)
{
    const auto accounts = store.accounts();
    const bool found = std::ranges::count(accounts, name, &Account::name) > 0;
    if (found != wanted)
        throw Failure(QString(found ? "%1 has an account %2 already" : "%1 has no account %2")
                          .arg(store.file(), quoted(QString::fromStdString(name))));
}

void requireNone(const QString& fault, const Command& command)
{
    if (!fault.isEmpty())
        throw Failure(QString("%1 is left as it is: %2").arg(QString::fromStdString(command.file), fault));
}

/// What is typed at the terminal behind `prompt`, which does not show it.
QString askHidden(const char* prompt, const Command& command)
{
    std::array<char, 256> typed{}; // more than fits is found too long
    if (!::readpassphrase(prompt, typed.data(), typed.size(), RPP_REQUIRE_TTY))
        requireNone("there is no terminal to ask for the password; run this in one, or let --generate make a "
                    "password",
                    command);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString password = decoder(QByteArrayView(typed.data()));
    ::explicit_bzero(typed.data(), typed.size());
    requireNone(decoder.hasError() ? "the password is not valid UTF-8" : "", command);
    return password;
}

QString askedPassword(const Command& command)
{
    QString password = askHidden("New password: ", command);
    requireNone(passwordFault(password), command);
    requireNone(askHidden("The same again: ", command) == password ? "" : "the two entries differ", command);
    return password;
}

/// Adds the account of the command or sets its password, which is asked for or made and told.
void givePassword(Command& command, bool isNew)
{
    const QString name = QString::fromStdString(command.name);
    requireNone(isNew ? nameFault(name) : "", command);
    Store store = command.store(users);
    requirePresence(store, command.name, !isNew);
    const QString password =
        command.generate ? QString::fromStdString(newPassword()) : askedPassword(command);
    store.changing([&] {
        requirePresence(store, command.name, !isNew);
        if (isNew)
            store.add(users, {name, password});
        else
            store.set(users, db::schema::password, password, db::schema::username, name);
        if (command.generate)
            command.out << "The password of \"" << command.name << "\" is \"" << password.toStdString()
                        << "\". It is not shown again: note it down now.\n"
                        << std::flush;
        requireNone(command.out ? "" : "the password could not be shown", command);
    });
    command.out << (isNew ? "The account was added.\n" : "The password was set.\n") << std::flush;
}

} // namespace

QString nameFault(const QString& name)
{
    return std::ranges::any_of(name, [](QChar c) { return c.isSpace(); }) ? "the name holds a blank"
                                                                          : fault("name", name);
}

QString passwordFault(const QString& password)
{
    return password.trimmed() != password ? "the password has a blank at an end"
                                          : fault("password", password);
}

std::string newPassword()
{
    constexpr std::string_view symbols = "abcdefghjkmnpqrstuvwxyz23456789";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> index(0, symbols.size() - 1);
    std::string password(12, ' ');
    std::ranges::generate(password, [&] { return symbols.at(index(source)); });
    return password;
}

namespace actions {

void listAccounts(Command& command)
{
    for (const Account& account : command.store(users).accounts())
        command.out << shown(QString::fromStdString(account.name)).toStdString() << '\n';
}

void addAccount(Command& command)
{
    givePassword(command, true);
}

void setPassword(Command& command)
{
    givePassword(command, false);
}

void renameAccount(Command& command)
{
    const QString newName = QString::fromStdString(command.newName);
    requireNone(nameFault(newName), command);
    Store store = command.store(users);
    store.changing([&] {
        requirePresence(store, command.name, true);
        requirePresence(store, command.newName, false);
        store.set(users, db::schema::username, newName, db::schema::username,
                  QString::fromStdString(command.name));
    });
    command.out << "The account was renamed.\n";
}

void removeAccount(Command& command)
{
    Store store = command.store(users);
    store.changing([&] {
        requirePresence(store, command.name, true);
        const auto accounts = store.accounts();
        requireNone(std::ranges::count(accounts, command.name, &Account::name) < std::ssize(accounts)
                        ? ""
                        : "without its last account nobody could log in",
                    command);
        store.remove(users, db::schema::username, QString::fromStdString(command.name));
    });
    command.out << "The account was removed.\n";
}

} // namespace actions
} // namespace bank
