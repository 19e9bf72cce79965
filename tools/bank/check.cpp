#include "bank/check.h"

#include "bank/accounts.h"
#include "bank/near.h"
#include "bank/rules.h"
#include "db/failure.h"

namespace bank {
namespace {

/// Whether the table is there with all its fields.
bool hasTable(Store& store, const char* table, Complaints& complaints)
{
    try {
        store.require(table);
        return true;
    } catch (const db::Failure& failure) {
        using Cause = db::Failure::Cause;
        if (failure.cause() != Cause::NoTable && failure.cause() != Cause::NoField)
            throw;
        complaints.add({store.file()}, failure.message());
        return false;
    }
}

void checkAccounts(Store& store, Complaints& complaints)
{
    const auto accounts = store.accounts();
    if (accounts.empty()) {
        complaints.warn({store.file()}, "nobody can log in to the administration console, there is no "
                                        "account; \"orvbank admin\" adds one");
    }
    for (const Account& account : accounts) {
        const QString name = QString::fromStdString(account.name);
        for (const QString& reason :
             {nameFault(name), passwordFault(QString::fromStdString(account.password))}) {
            if (!reason.isEmpty()) {
                complaints.warn({store.file()},
                                QString("the account \"%1\" cannot log in: %2").arg(name, reason));
            }
        }
    }
}

} // namespace

Complaints checkStore(Store& store, Progress& progress)
{
    Complaints complaints;
    Bank bank;
    const Place whole{store.file()};
    store.checkIntegrity();
    if (hasTable(store, "users", complaints))
        checkAccounts(store, complaints);
    const bool hasPrompts = hasTable(store, "locking", complaints);
    if (hasPrompts)
        bank.prompts = store.prompts();
    for (const Prompt& prompt : bank.prompts)
        checkPrompt(prompt, complaints);
    if (!hasTable(store, "questions", complaints))
        return complaints;
    bank.questions = store.questions(progress);
    progress.begin("Checking question", static_cast<long long>(bank.questions.size()));
    for (const Question& question : bank.questions) {
        checkQuestion(question, Texts::Played, complaints);
        progress.step();
    }
    checkEnough(bank, whole, complaints);
    if (hasPrompts)
        checkPrompts(bank, whole, complaints);
    checkMix(bank, whole, complaints, progress);
    return complaints;
}

void checkMix(const Bank& bank, const Place& source, Complaints& complaints, Progress& progress)
{
    checkRepeats(bank, complaints);
    checkNearRepeats(bank, complaints, progress);
    checkBalance(bank, source, complaints);
    progress.clear();
}

} // namespace bank
