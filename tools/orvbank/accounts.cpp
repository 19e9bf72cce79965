#include "bank/accounts.h"

#include "bank/failure.h"
#include "bank/password.h"
#include "bank/text.h"

#include <algorithm>
#include <ostream>

namespace bank {
namespace {

constexpr qsizetype maxLength = 15;

bool isBlank(QChar c)
{
    return c.isSpace();
}

QString fault(const QString& what, const QString& text)
{
    if (text.isEmpty()) {
        return QStringLiteral("the %1 is empty").arg(what);
    }
    if (length(text) > maxLength) {
        return QStringLiteral("the %1 has %2 characters, at most %3 fit")
            .arg(what)
            .arg(length(text))
            .arg(maxLength);
    }
    return strayCharacter(text) ? QStringLiteral("the %1 holds a control character").arg(what) : QString();
}

void requirePresence(Store& store, const std::string& name, bool wanted)
{
    const auto accounts = store.accounts();
    const bool found = std::any_of(accounts.begin(), accounts.end(),
                                   [&](const Account& account) { return account.name == name; });
    if (found != wanted) {
        throw Failure((found ? QStringLiteral("%1 has an account \"%2\" already")
                             : QStringLiteral("%1 has no account \"%2\""))
                          .arg(store.file(), QString::fromStdString(name)));
    }
}

std::string askedPassword()
{
    const QString password = askHidden("New password: ");
    if (const QString reason = passwordFault(password); !reason.isEmpty()) {
        throw Failure(QStringLiteral("Nothing was changed: %1").arg(reason));
    }
    if (askHidden("The same again: ") != password) {
        throw Failure(QStringLiteral("Nothing was changed: the two entries differ"));
    }
    return password.toStdString();
}

} // namespace

QString nameFault(const QString& name)
{
    const QString what = QStringLiteral("name");
    return std::any_of(name.begin(), name.end(), isBlank) ? QStringLiteral("the name holds a blank")
                                                          : fault(what, name);
}

QString passwordFault(const QString& password)
{
    const bool blankEnd = !password.isEmpty() && (isBlank(password.front()) || isBlank(password.back()));
    return blankEnd ? QStringLiteral("the password has a blank at an end")
                    : fault(QStringLiteral("password"), password);
}

void changeAccount(Store& store, AccountChange change, const std::string& name, bool generate,
                   std::ostream& out)
{
    const bool adds = change == AccountChange::Add;
    const QString unfit = adds ? nameFault(QString::fromStdString(name)) : QString();
    if (!unfit.isEmpty()) {
        throw Failure(QStringLiteral("No account was added: %1").arg(unfit));
    }
    requirePresence(store, name, !adds);
    const Account account{name, generate ? newPassword() : askedPassword()};
    store.changing([&] {
        requirePresence(store, name, !adds);
        adds ? store.addAccount(account) : store.setPassword(account);
        if (generate) {
            out << "The password of \"" << name << "\" is \"" << account.password
                << "\". It is not shown again: note it down now.\n"
                << std::flush;
        }
        if (!out) {
            throw Failure(QStringLiteral("Nothing was changed: the password could not be shown"));
        }
    });
    out << (adds ? "The account was added.\n" : "The password was set.\n") << std::flush;
}

} // namespace bank
