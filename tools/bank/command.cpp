#include "bank/command.h"

#include "bank/accounts.h"
#include "bank/backup.h"
#include "bank/check.h"
#include "bank/create.h"
#include "bank/export.h"
#include "bank/import.h"
#include "bank/lines.h"
#include "bank/password.h"
#include "bank/source.h"
#include "bank/stats.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>

namespace bank {
namespace {

enum Exit { Done = 0, NotDone = 1, WrongUsage = 2, Faulty = 3 };

/// What the command line says, and where the answers go.
struct Command
{
    std::ostream& out;
    std::ostream& err;
    Progress progress;
    std::string file;
    std::string other; ///< the file or folder besides it
    std::string name;
    std::string level;
    const Format* format = nullptr;
    ImportOptions import;
    bool generate = false;
    int exitCode = Done;

    void tell(const QStringList& lines, std::ostream& where)
    {
        progress.clear();
        for (const QString& line : lines)
            where << line.toStdString() << '\n';
    }
};

std::string counted(std::size_t number, const char* what)
{
    return std::to_string(number) + ' ' + what + (number == 1 ? "" : "s");
}

void create(Command& command)
{
    Intake intake(Texts::Reviewed, {}, command.progress);
    readFolder(command.other, intake);
    checkRepeats(intake.bank, intake.complaints);
    if (intake.complaints.empty())
        checkEnough(intake.bank, {nameOf(command.other)}, intake.complaints);
    intake.complaints.throwIfAny();
    checkPrompts(intake.bank, {nameOf(command.other)}, intake.complaints);
    command.tell(intake.complaints.warnings(), command.err);

    const Account owner{"owner", newPassword()};
    createDatabase(command.file, intake.bank, owner);
    command.progress.clear();
    command.out << command.file << " was created with " << intake.bank.questions.size() << " questions and "
                << intake.bank.prompts.size() << " prompts.\n"
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

/// Complains about the files that a bank is made of, or about one that is to be imported.
Complaints checkSource(Command& command)
{
    std::error_code ignored;
    const bool isFolder = std::filesystem::is_directory(command.other, ignored);
    Intake intake(isFolder ? Texts::Reviewed : Texts::Played, QString::fromStdString(command.level),
                  command.progress);
    readSource(command.other, command.format, intake);
    const Place whole{nameOf(command.other)};
    if (isFolder) {
        checkEnough(intake.bank, whole, intake.complaints);
        checkPrompts(intake.bank, whole, intake.complaints);
    }
    checkMix(intake.bank, whole, intake.complaints, command.progress);
    return intake.complaints;
}

void check(Command& command)
{
    if (command.file.empty() && command.other.empty())
        throw CLI::RequiredError("FILE or --from");
    Complaints found;
    if (command.file.empty()) {
        found = checkSource(command);
    } else {
        Store store(command.file);
        found = checkStore(store, command.progress);
    }
    command.tell(found.lines(), command.out);
    command.tell(found.warnings(), command.out);
    const QString subject = QString::fromStdString(command.file.empty() ? command.other : command.file);
    if (found.empty()) {
        command.tell({subject + ": no faults"}, command.out);
    } else {
        const auto count = found.lines().size();
        command.tell({subject + QString(": %1 %2").arg(count).arg(count == 1 ? "fault" : "faults")},
                     command.out);
        command.exitCode = Faulty;
    }
}

void importSource(Command& command)
{
    Intake intake(Texts::Played, QString::fromStdString(command.level), command.progress);
    command.progress.begin("Reading question");
    readSource(command.other, command.format, intake);
    command.tell(intake.complaints.warnings(), command.err);
    if (intake.complaints.empty() && intake.bank.questions.empty())
        intake.complaints.add({nameOf(command.other)}, "there are no questions in it");
    const auto lacksLevel = [](const Question& question) { return question.level.isEmpty(); };
    if (std::ranges::any_of(intake.bank.questions, lacksLevel))
        intake.complaints.add({nameOf(command.other)}, "--level gives a level to questions without");
    intake.complaints.throwIfAny();
    Store store(command.file);
    const std::size_t prompts = importQuestions(store, intake, command.import, command.progress);
    command.progress.clear();
    command.out << command.file << (command.import.dryRun ? " would take" : " has taken") << " in "
                << counted(intake.bank.questions.size(), "question")
                << (prompts > 0 ? " and " + counted(prompts, "prompt") : "")
                << (command.import.replace ? " in place of those it had" : "") << ".\n";
}

void exportBank(Command& command)
{
    const Format& format = command.format ? *command.format : formatOf(command.other);
    Store store(command.file);
    store.require("questions");
    std::vector<Question> questions = store.questions(command.progress);
    if (!command.level.empty())
        std::erase_if(questions, [&](const Question& q) { return q.level.toStdString() != command.level; });
    const Exported written = exportQuestions(std::move(questions), command.other, format);
    command.tell(written.warnings, command.err);
    command.out << counted(written.questions, "question") << " went into " << command.other << ".\n";
}

void stats(Command& command)
{
    Intake topics(Texts::Played, {}, command.progress);
    if (!command.other.empty()) {
        readSource(command.other, command.format, topics);
        topics.complaints.throwIfAny();
    }
    Store store(command.file);
    store.require("questions");
    const auto questions = store.questions(command.progress);
    command.progress.clear();
    printStats(questions, topics.bank.questions, command.out);
}

void changeAccounts(Command& command, AccountChange change)
{
    Store store(command.file);
    store.require("users");
    changeAccount(store, change, command.name, command.generate, command.out);
}

void listAccounts(Command& command)
{
    Store store(command.file);
    store.require("users");
    for (const Account& account : store.accounts())
        command.out << account.name << '\n';
}

void backup(Command& command)
{
    backUp(command.file, command.other, command.progress);
    command.progress.clear();
    command.out << command.other << " is a sound copy of " << command.file << ".\n";
}

/// A subcommand that works on a database.
CLI::App* add(CLI::App& app, Command& command, const char* name, const char* what, void (*work)(Command&))
{
    auto* const sub = app.add_subcommand(name, what);
    sub->callback([&command, work] { work(command); });
    return sub;
}

CLI::Option* addFile(CLI::App* sub, Command& command)
{
    return sub->add_option("FILE", command.file, "The database")->required();
}

void addFormat(CLI::App* sub, Command& command)
{
    sub->add_option_function<std::string>(
           "--format",
           [&command](const std::string& name) {
               command.format = formatNamed(name);
               if (!command.format)
                   throw CLI::ValidationError("--format",
                                              '"' + name + "\" is none of csv, gift, aiken, text");
           },
           "csv, gift, aiken or text; without it the name of the file tells")
        ->option_text("FORMAT");
}

void addLevel(CLI::App* sub, Command& command, const char* what)
{
    sub->add_option("--level", command.level, what)
        ->check(CLI::IsMember({"1", "2", "3"}))
        ->option_text("1|2|3");
}

void declareAdmin(CLI::App& app, Command& command)
{
    auto* const admin = app.add_subcommand("admin", "Look after the accounts of the administration console");
    addFile(admin, command);
    admin->require_subcommand(1);
    const auto declare = [&](const char* name, const char* what, AccountChange change) {
        auto* const sub = admin->add_subcommand(name, what);
        sub->add_option("NAME", command.name, "The account; at most 15 characters, no blank")->required();
        sub->add_flag("--generate", command.generate,
                      "Make a password and show it once, instead of asking for one");
        sub->callback([&command, change] { changeAccounts(command, change); });
    };
    declare("add", "Add an account", AccountChange::Add);
    declare("password", "Set the password of an account", AccountChange::SetPassword);
    add(*admin, command, "list", "Print the names of the accounts", listAccounts);
}

void declare(CLI::App& app, Command& command)
{
    auto* sub = add(app, command, "create", "Make a new quiz database out of text files", create);
    sub->add_option("FILE", command.file, "The database to make, for the game always orv.orv; must not exist")
        ->required();
    sub->add_option("--from", command.other,
                    "Folder with questions-*.txt and prompts.txt; its README.md describes their form")
        ->required()
        ->option_text("DATADIR REQUIRED");

    sub =
        add(app, command, "check", "Find faults in a database, or in files to make or fill one with", check);
    auto* const file = sub->add_option("FILE", command.file, "The database");
    sub->add_option("--from", command.other, "Instead: a folder of text files, or a file to import")
        ->option_text("SOURCE")
        ->excludes(file);
    addFormat(sub, command);
    addLevel(sub, command, "Level of questions whose source gives none");

    sub = add(app, command, "import", "Put questions into a database, all of them or none", importSource);
    addFile(sub, command);
    sub->add_option("SOURCE", command.other, "A file of questions, or a folder of text files")->required();
    addFormat(sub, command);
    addLevel(sub, command, "Level of questions whose source gives none");
    sub->add_flag("--replace", command.import.replace, "Remove the questions that are there; accounts stay");
    sub->add_flag("--dry-run", command.import.dryRun, "Only tell what would be done");

    sub = add(app, command, "export", "Write the questions of a database to a new file", exportBank);
    addFile(sub, command);
    sub->add_option("TARGET", command.other, "The file to make; must not exist")->required();
    addFormat(sub, command);
    addLevel(sub, command, "Only the questions of this level");

    sub = add(app, command, "stats", "Print how many questions there are and how they were answered", stats);
    addFile(sub, command);
    sub->add_option("--from", command.other, "Source that knows the topics of the questions")
        ->option_text("SOURCE");
    addFormat(sub, command);

    declareAdmin(app, command);

    sub = add(app, command, "backup", "Copy a database, also while the game has it open", backup);
    addFile(sub, command);
    sub->add_option("TARGET", command.other, "The file to make; must not exist")->required();
}

} // namespace

int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err, std::ostream* terminal)
{
    CLI::App app("Looks after the question bank of Orvanta.", "orvbank");
    app.require_subcommand(1);
    app.footer(
        "Exit code: 0 done, 1 not done because of what was told, 2 wrong usage, 3 check found faults.");
    Command command{out, err, Progress(terminal), {}, {}, {}, {}, nullptr, {}, false, Done};
    declare(app, command);
    try {
        app.parse(argc, argv);
        return command.exitCode;
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, err) == 0 ? Done : WrongUsage;
    } catch (const std::exception& error) {
        command.progress.clear();
        err << error.what() << '\n';
        return NotDone;
    }
}

} // namespace bank
