#include "bank/actions.h"

#include "bank/accounts.h"
#include "bank/backup.h"
#include "bank/check.h"
#include "bank/create.h"
#include "bank/export.h"
#include "bank/password.h"
#include "bank/rows.h"
#include "bank/sheet.h"
#include "bank/source.h"
#include "bank/text.h"

#include <algorithm>
#include <ostream>

namespace bank {

void Command::tell(const QStringList& lines, std::ostream& where)
{
    progress.clear();
    for (const QString& line : lines)
        where << shownLines(line).toStdString() << '\n';
}

namespace actions {
namespace {

std::string counted(std::size_t number, const char* what)
{
    return std::to_string(number) + ' ' + what + (number == 1 ? "" : "s");
}

bool isFolder(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

Intake intakeOf(Command& command)
{
    Intake intake(isFolder(command.other) ? Texts::Reviewed : Texts::Played,
                  QString::fromStdString(command.level), command.progress);
    command.progress.begin("Reading question");
    return intake;
}

/// The bank that is to be made: of a folder, which obeys all rules; of a file; or an empty one.
Bank bankToMake(Command& command)
{
    if (command.other.empty())
        return {};
    Intake intake = intakeOf(command);
    readSource(command.other, command.format, intake);
    checkRepeats(intake.bank, intake.complaints);
    if (isFolder(command.other)) {
        if (intake.complaints.empty())
            checkEnough(intake.bank, {nameOf(command.other)}, intake.complaints);
        checkPrompts(intake.bank, {nameOf(command.other)}, intake.complaints);
    }
    intake.complaints.throwIfAny();
    command.tell(intake.complaints.warnings(), command.err);
    return intake.bank;
}

/// Whether a level is missing, which only --level can give.
bool lacksLevel(const Question& question)
{
    return question.level.isEmpty();
}

Store storeWith(Command& command, const db::schema::Table& table)
{
    Store store(command.file, command.progress);
    store.require(table);
    return store;
}

std::vector<Question> questionsOf(Command& command)
{
    auto questions = storeWith(command, db::schema::questions).questions();
    command.progress.clear();
    return questions;
}

void change(Command& command, AccountChange what)
{
    Store store = storeWith(command, db::schema::users);
    changeAccount(store, what, command.name, command.generate, command.out);
}

} // namespace

void create(Command& command)
{
    const Bank bank = bankToMake(command);
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
    const std::string& subject = command.file.empty() ? command.other : command.file;
    const Place whole{nameOf(subject)};
    if (command.file.empty()) {
        Intake intake = intakeOf(command);
        readSource(command.other, command.format, intake);
        if (isFolder(command.other)) {
            checkEnough(intake.bank, whole, intake.complaints);
            checkPrompts(intake.bank, whole, intake.complaints);
        }
        checkMix(intake.bank, whole, intake.complaints, command.progress);
        bank = std::move(intake.bank);
        found = std::move(intake.complaints);
    } else {
        Store store(command.file, command.progress);
        found = checkStore(store, bank, command.progress);
    }
    command.tell(found.lines(), command.out);
    command.tell(found.warnings(), command.out);
    command.progress.clear();
    command.foundFaults = !found.empty();
    command.out << whole.file.toStdString() << ": " << counted(bank.questions.size(), "question") << ", "
                << (found.empty() ? "no faults" : counted(found.lines().size(), "fault")) << '\n';
}

void importSource(Command& command)
{
    Intake intake(Texts::Played, QString::fromStdString(command.level), command.progress);
    if (command.import.skipUnfit)
        intake.skipUnfit();
    command.progress.begin("Reading question");
    readSource(command.other, command.format, intake);
    if (std::ranges::any_of(intake.bank.questions, lacksLevel))
        intake.complaints.add({nameOf(command.other)}, "--level gives a level to questions without");
    Store store(command.file, command.progress);
    const Imported done = importQuestions(store, intake, command.import, command.progress);
    command.tell(intake.complaints.warnings(), command.err);
    command.tell(done.notes, command.err);
    const bool dry = command.import.dryRun;
    command.out << command.file << (dry ? " would take" : " has taken") << " in "
                << counted(done.added, "question")
                << (done.prompts > 0 ? " and " + counted(done.prompts, "prompt") : "")
                << (command.import.replace ? " in place of those it had" : "") << ".\n";
    if (command.import.update)
        command.out << counted(done.changed, "question")
                    << (dry                 ? " would be"
                        : done.changed == 1 ? " was"
                                            : " were")
                    << " changed.\n";
    if (done.known > 0)
        command.out << counted(done.known, "question") << " that it has stay as they are.\n";
}

void exportBank(Command& command)
{
    if (!command.format && isStandard(command.other))
        throw Failure("give --format, standard output has no name that tells it");
    const Format& format = command.format ? *command.format : formatOf(command.other);
    std::vector<Question> questions = questionsOf(command);
    if (!command.level.empty())
        std::erase_if(questions, [&](const Question& q) { return q.level.toStdString() != command.level; });
    const Exported written = exportQuestions(std::move(questions), command.other, format, command.out);
    command.tell(written.warnings, command.err);
    std::ostream& notes = isStandard(command.other) ? command.err : command.out;
    notes << counted(written.questions, "question") << " went into "
          << (isStandard(command.other) ? "standard output" : command.other) << ".\n";
}

void listOrSearch(Command& command)
{
    const auto found = listQuestions(questionsOf(command), QString::fromStdString(command.level),
                                     command.words, command.out);
    if (found == 0)
        command.err << "There is no such question.\n";
}

void show(Command& command)
{
    Store store(command.file, command.progress);
    const Question question = questionOfNumber(store, command.number);
    command.progress.clear();
    showQuestion(question, command.out);
}

void set(Command& command)
{
    Store store(command.file, command.progress);
    setTexts(store, command.number, command.words);
    show(command);
}

void remove(Command& command)
{
    Store store(command.file, command.progress);
    const Question question = questionOfNumber(store, command.number);
    command.progress.clear();
    if (!command.yes)
        throw Failure(QString("Nothing was changed: --yes would delete question %1, %2")
                          .arg(command.number)
                          .arg(quoted(question.text)));
    store.changing([&] { store.removeQuestion(command.number); });
    command.out << "Question " << command.number << ", " << quoted(question.text).toStdString()
                << ", was deleted.\n";
}

void stats(Command& command)
{
    Intake topics(Texts::Played, {}, command.progress);
    if (!command.other.empty()) {
        readSource(command.other, command.format, topics);
        topics.complaints.throwIfAny();
    }
    Store store = storeWith(command, db::schema::questions);
    if (command.reset) {
        store.changing([&] { store.resetTallies(); });
        command.out << "The tallies of all questions are 1 again, as before the first game.\n";
        return;
    }
    const auto questions = store.questions();
    command.progress.clear();
    if (command.asCsv)
        printStatsAsCsv(questions, command.order, command.out);
    else
        printStats(questions, topics.bank.questions, command.order, command.out);
}

void sheet(Command& command)
{
    const std::size_t count = printSheet(questionsOf(command), command.perLevel, command.other);
    command.out << counted(count, "question") << " went into " << command.other << ".\n";
}

void importPromptFile(Command& command)
{
    Intake intake(Texts::Played, {}, command.progress);
    readPrompts(readText(command.other, intake.complaints), intake);
    if (intake.complaints.empty() && intake.bank.prompts.empty())
        intake.complaints.add({nameOf(command.other)}, "there are no prompts in it");
    checkRepeats(intake.bank, intake.complaints);
    intake.complaints.throwIfAny();
    Store store = storeWith(command, db::schema::locking);
    std::size_t count = 0;
    store.changing([&] { count = importPrompts(store, intake.bank.prompts, command.import.replace); });
    command.out << command.file << " has taken in " << counted(count, "prompt")
                << (command.import.replace ? " in place of those it had" : "") << ".\n";
}

void exportPrompts(Command& command)
{
    QString lines;
    for (const Prompt& prompt : storeWith(command, db::schema::locking).prompts())
        lines += (isStandard(command.other) ? shown(prompt.message) : prompt.message) + u'\n';
    writeNew(command.other, lines.toUtf8(), command.out);
}

void listAccounts(Command& command)
{
    for (const Account& account : storeWith(command, db::schema::users).accounts())
        command.out << shown(QString::fromStdString(account.name)).toStdString() << '\n';
}

void addAccount(Command& command)
{
    change(command, AccountChange::Add);
}

void setPassword(Command& command)
{
    change(command, AccountChange::SetPassword);
}

void renameAccount(Command& command)
{
    Store store = storeWith(command, db::schema::users);
    bank::renameAccount(store, command.name, command.newName);
    command.out << "The account was renamed.\n";
}

void removeAccount(Command& command)
{
    Store store = storeWith(command, db::schema::users);
    bank::removeAccount(store, command.name);
    command.out << "The account was removed.\n";
}

void backup(Command& command)
{
    (command.forOthers ? copyForOthers : backUp)(command.file, command.other, command.progress);
    command.progress.clear();
    command.out << command.other << " is a sound copy of " << command.file
                << (command.forOthers ? " without accounts and tallies" : "") << ".\n";
}

void restoreBackup(Command& command)
{
    const auto aside = restore(command.file, command.other, command.progress);
    command.progress.clear();
    command.out << command.file << " holds again what " << command.other << " holds.\n";
    if (!aside.empty())
        command.out << "What it held is kept in " << aside.string() << ".\n";
}

} // namespace actions
} // namespace bank
