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
    if (text.isEmpty())
        return QString("the %1 is empty").arg(what);
    if (length(text) > maxLength)
        return QString("the %1 has %2 characters, at most %3 fit").arg(what).arg(length(text)).arg(maxLength);
    return strayCharacter(text) ? QString("the %1 holds a control character").arg(what) : QString();
}

void requirePresence(Store& store, const std::string& name, bool wanted)
{
    const auto accounts = store.accounts();
    const bool found = std::any_of(accounts.begin(), accounts.end(),
                                   [&](const Account& account) { return account.name == name; });
    if (found != wanted) {
        throw Failure(QString(found ? "%1 has an account \"%2\" already" : "%1 has no account \"%2\"")
                          .arg(store.file(), QString::fromStdString(name)));
    }
}

std::string askedPassword()
{
    const QString password = askHidden("New password: ");
    if (const QString reason = passwordFault(password); !reason.isEmpty())
        throw Failure(QString("Nothing was changed: %1").arg(reason));
    if (askHidden("The same again: ") != password)
        throw Failure("Nothing was changed: the two entries differ");
    return password.toStdString();
}

} // namespace

QString nameFault(const QString& name)
{
    const QString what = "name";
    return std::any_of(name.begin(), name.end(), isBlank) ? "the name holds a blank" : fault(what, name);
}

QString passwordFault(const QString& password)
{
    const bool blankEnd = !password.isEmpty() && (isBlank(password.front()) || isBlank(password.back()));
    return blankEnd ? "the password has a blank at an end" : fault("password", password);
}

void changeAccount(Store& store, AccountChange change, const std::string& name, bool generate,
                   std::ostream& out)
{
    const bool adds = change == AccountChange::Add;
    const QString unfit = adds ? nameFault(QString::fromStdString(name)) : QString();
    if (!unfit.isEmpty())
        throw Failure(QString("No account was added: %1").arg(unfit));
    requirePresence(store, name, !adds);
    const Account account{name, generate ? newPassword() : askedPassword()};
    store.changing([&] {
        requirePresence(store, name, !adds);
        adds ? store.addAccount(account) : store.setPassword(account);
        if (generate)
            out << "The password of \"" << name << "\" is \"" << account.password
                << "\". It is not shown again: note it down now.\n"
                << std::flush;
        if (!out)
            throw Failure("Nothing was changed: the password could not be shown");
    });
    out << (adds ? "The account was added.\n" : "The password was set.\n") << std::flush;
}

} // namespace bank
