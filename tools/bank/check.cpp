#include "bank/actions.h"

#include "bank/accounts.h"
#include "bank/create.h"
#include "bank/near.h"
#include "bank/source.h"
#include "bank/text.h"

#include <ostream>

namespace bank {
namespace {

bool isFolder(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

/// What the other file holds, or a folder, which obeys all rules.
Intake sourceOf(Command& command)
{
    Intake intake = command.intake(isFolder(command.other) ? Texts::Reviewed : Texts::Played);
    readSource(command.other, command.format, intake);
    if (isFolder(command.other)) {
        checkEnough(intake.bank, {nameOf(command.other)}, intake.complaints);
        checkPrompts(intake.bank, {nameOf(command.other)}, intake.complaints);
    }
    return intake;
}

/// Whether the table is there with all its fields.
bool hasTable(Store& store, const db::schema::Table& table, Complaints& complaints)
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
                                QString("the account %1 cannot log in: %2").arg(quoted(name), reason));
            }
        }
    }
}

/// Complains about everything in the database that makes a question unfair or a game impossible; warns of
/// what an owner should know.
void checkStore(Store& store, Bank& bank, Complaints& complaints, Progress& progress)
{
    const Place whole{store.file()};
    store.checkIntegrity();
    if (hasTable(store, db::schema::users, complaints))
        checkAccounts(store, complaints);
    const bool hasPrompts = hasTable(store, db::schema::locking, complaints);
    if (hasPrompts)
        bank.prompts = store.prompts();
    for (const Prompt& prompt : bank.prompts)
        checkPrompt(prompt, complaints);
    if (!hasTable(store, db::schema::questions, complaints))
        return;
    bank.questions = store.questions();
    progress.begin("Checking question", static_cast<long long>(bank.questions.size()));
    for (const Question& question : bank.questions) {
        checkQuestion(question, Texts::Played, complaints);
        progress.step();
    }
    checkEnough(bank, whole, complaints);
    if (hasPrompts)
        checkPrompts(bank, whole, complaints);
}

} // namespace

namespace actions {

void create(Command& command)
{
    Bank bank;
    if (!command.other.empty()) {
        Intake intake = sourceOf(command);
        removeRepeats(intake.bank, intake.complaints);
        intake.complaints.throwIfAny();
        command.tell(intake.complaints.warnings(), command.err);
        bank = std::move(intake.bank);
    }
    const Account owner{"owner", newPassword()};
    createDatabase(command.file, bank, owner, command.progress);
    command.progress.clear();
    command.out << command.file << " was created with " << counted(bank.questions.size(), "question")
                << " and " << counted(bank.prompts.size(), "prompt") << ".\n"
                << "Log in to the administration console as \"" << owner.name << "\" with the password \""
                << owner.password
                << "\". It was made for this file alone and is not shown again: note it down now.\n"
                << "To set another one: orvbank admin " << command.file << " password " << owner.name << '\n'
                << std::flush;
    if (!command.out) {
        std::error_code ignored;
        std::filesystem::remove(command.file, ignored);
        throw Failure(QString("%1 was removed again: its password could not be shown")
                          .arg(QString::fromStdString(command.file)));
    }
}

void check(Command& command)
{
    Complaints found;
    Bank bank;
    const Place whole{nameOf(command.file.empty() ? command.other : command.file)};
    if (command.file.empty()) {
        Intake intake = sourceOf(command);
        bank = std::move(intake.bank);
        found = std::move(intake.complaints);
    } else {
        Store store(command.file, command.progress);
        checkStore(store, bank, found, command.progress);
    }
    const std::string questions = counted(bank.questions.size(), "question");
    checkMix(bank, whole, found, command.progress);
    command.tell(found.lines() + found.warnings(), command.out);
    command.foundFaults = !found.empty();
    command.out << whole.file.toStdString() << ": " << questions << ", "
                << (found.empty() ? "no faults" : counted(static_cast<std::size_t>(found.count()), "fault"))
                << '\n';
}

} // namespace actions
} // namespace bank
