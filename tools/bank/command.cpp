#include "bank/command.h"

#include "bank/actions.h"
#include "bank/failure.h"
#include "bank/text.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace bank {
namespace {

enum Exit { Done = 0, NotDone = 1, WrongUsage = 2, Faulty = 3 };

using Action = void (*)(Command&);

CLI::App* add(CLI::App& app, Command& command, const char* name, const char* what, Action action)
{
    auto* const sub = app.add_subcommand(name, what);
    sub->callback([&command, action] { action(command); });
    return sub;
}

/// The same for one that works on a database.
CLI::App* addForFile(CLI::App& app, Command& command, const char* name, const char* what, Action action)
{
    auto* const sub = add(app, command, name, what, action);
    sub->add_option("FILE", command.file, "The database")->required();
    return sub;
}

CLI::Option* addTarget(CLI::App* sub, Command& command, const char* what = "The file to make; must not exist")
{
    return sub->add_option("TARGET", command.other, what)->required();
}

void addFormat(CLI::App* sub, Command& command)
{
    sub->add_option_function<std::string>(
           "--format",
           [&command](const std::string& name) {
               const QString wanted = QString::fromStdString(name).toLower();
               QStringList names;
               for (const Format& format : formats)
                   names << format.name;
               if (!names.contains(wanted))
                   throw CLI::ValidationError("--format", unknown("format", wanted, names).toStdString());
               command.format = &formats.at(static_cast<std::size_t>(names.indexOf(wanted)));
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

void declareCreateAndCheck(CLI::App& app, Command& command)
{
    auto* sub = add(app, command, "create", "Make a new quiz database", actions::create);
    sub->add_option("FILE", command.file, "The database to make, for the game always orv.orv; must not exist")
        ->required();
    sub->add_option(
           "--from", command.other,
           "A folder with questions-*.txt and prompts.txt, whose README.md describes their form, or a file "
           "to import; without it the database is empty")
        ->option_text("SOURCE");
    addFormat(sub, command);
    addLevel(sub, command, "Level of questions whose source gives none");

    sub = add(app, command, "check", "Find faults in a database, or in files to make or fill one with",
              [](Command& given) {
                  if (given.file.empty() && given.other.empty())
                      throw CLI::RequiredError("FILE or --from");
                  actions::check(given);
              });
    auto* const file = sub->add_option("FILE", command.file, "The database");
    sub->add_option("--from", command.other,
                    "Instead: a folder of text files, or a file to import (\"-\" is standard input)")
        ->option_text("SOURCE")
        ->excludes(file);
    addFormat(sub, command);
    addLevel(sub, command, "Level of questions whose source gives none");
}

void declareExchange(CLI::App& app, Command& command)
{
    auto* sub = addForFile(app, command, "import", "Put questions into a database, all of them or none",
                           actions::importSource);
    sub->add_option("SOURCE", command.other,
                    "A file of questions (\"-\" is standard input), or a folder of text files")
        ->required();
    addFormat(sub, command);
    addLevel(sub, command, "Level of questions whose source gives none");
    auto* const replace =
        sub->add_flag("--replace", command.replace, "Remove the questions that are there; accounts stay");
    auto* const update = sub->add_flag(
        "--update", command.update, "Change the questions that are there with the same text; tallies stay");
    auto* const skip = sub->add_flag("--skip-known", command.skipKnown, "Leave them as they are");
    update->excludes(replace);
    skip->excludes(replace)->excludes(update);
    sub->add_flag("--skip-unfit", command.skipUnfit, "Leave out what breaks a rule, and tell so");
    sub->add_flag("--shuffle", command.shuffle,
                  "Put the options of new questions in random order, unless they are numbers");
    sub->add_flag("--dry-run", command.dryRun, "Only tell what would be done");

    sub = addForFile(app, command, "export", "Write the questions of a database to a new file",
                     actions::exportBank);
    addTarget(sub, command, "The file to make; must not exist (\"-\" is standard output)");
    addFormat(sub, command);
    addLevel(sub, command, "Only the questions of this level");

    auto* const prompts =
        app.add_subcommand("prompts", "Look after what the host says before an answer is locked");
    prompts->add_option("FILE", command.file, "The database")->required();
    prompts->require_subcommand(1);
    sub = add(*prompts, command, "import", "Add prompts, one a line", actions::importPrompts);
    sub->add_option("SOURCE", command.other, "The file (\"-\" is standard input)")->required();
    sub->add_flag("--replace", command.replace, "Remove the prompts that are there");
    sub = add(*prompts, command, "export", "Write the prompts, one a line", actions::exportPrompts);
    addTarget(sub, command, "The file to make; must not exist (\"-\" is standard output)");
}

void declareRows(CLI::App& app, Command& command)
{
    auto* sub =
        addForFile(app, command, "list", "Print number, level, right letter and text of the questions",
                   actions::listOrSearch);
    addLevel(sub, command, "Only the questions of this level");
    sub = addForFile(app, command, "search",
                     "List the questions that hold all of some words, also in their options",
                     actions::listOrSearch);
    sub->add_option("WORDS", command.words, "The words; neither case nor accents count")->required();
    addLevel(sub, command, "Only the questions of this level");
    const auto addNumber = [&] {
        sub->add_option("NUMBER", command.number, "Number of the question, as list prints it")->required();
    };
    sub = addForFile(app, command, "show", "Print all of a question", actions::show);
    addNumber();
    sub = addForFile(app, command, "set", "Change texts of a question", actions::set);
    addNumber();
    sub->add_option("FIELD=TEXT", command.words, "What to set: level, question, A, B, C, D, right")
        ->required();
    sub = addForFile(app, command, "delete", "Delete a question", actions::remove);
    addNumber();
    sub->add_flag("--yes", command.yes, "Do so; without it the question is only named");
}

void declareUse(CLI::App& app, Command& command)
{
    auto* sub = addForFile(app, command, "stats",
                           "Print how many questions there are and how they were answered", actions::stats);
    sub->add_option("--from", command.other, "Source that knows the topics of the questions")
        ->option_text("SOURCE");
    addFormat(sub, command);
    const auto addOrder = [&](const char* name, StatsOrder order, const char* what) {
        return sub->add_flag_callback(
            name, [&command, order] { command.order = order; }, what);
    };
    addOrder("--hardest", StatsOrder::HardestFirst, "Those first that were answered wrong most often")
        ->excludes(addOrder("--easiest", StatsOrder::EasiestFirst,
                            "Those first that were answered right most often"));
    sub->add_flag("--csv", command.asCsv, "Print the played questions as a table for spreadsheets");
    sub->add_flag("--reset", command.reset, "Instead: forget how the questions were answered");

    sub = addForFile(app, command, "sheet", "Make a PDF file of a quiz to print, with the answers behind it",
                     actions::sheet);
    addTarget(sub, command);
    sub->add_option("--count", command.perLevel, "Questions of each level, drawn at random")
        ->check(CLI::Range(1, 1000))
        ->capture_default_str();
}

void declareCare(CLI::App& app, Command& command)
{
    auto* const admin = app.add_subcommand("admin", "Look after the accounts of the administration console");
    admin->add_option("FILE", command.file, "The database")->required();
    admin->require_subcommand(1);
    const auto declare = [&](const char* name, const char* what, Action action) {
        auto* const sub = add(*admin, command, name, what, action);
        sub->add_option("NAME", command.name, "The account; at most 15 characters, no blank")->required();
        return sub;
    };
    for (auto* const sub : {declare("add", "Add an account", actions::addAccount),
                            declare("password", "Set the password of an account", actions::setPassword)})
        sub->add_flag("--generate", command.generate,
                      "Make a password and show it once, instead of asking for one");
    declare("rename", "Give an account another name", actions::renameAccount)
        ->add_option("NEWNAME", command.newName, "At most 15 characters, no blank")
        ->required();
    declare("remove", "Remove an account, but never the last", actions::removeAccount);
    add(*admin, command, "list", "Print the names of the accounts", actions::listAccounts);

    auto* sub = addForFile(app, command, "backup", "Copy a database, also while the game has it open",
                           actions::backup);
    addTarget(sub, command);
    sub->add_flag("--for-others", command.forOthers,
                  "Leave out the accounts, and how the questions were answered");
    sub = addForFile(app, command, "restore",
                     "Put a backup in place of a database, which is kept under another name",
                     actions::restoreBackup);
    sub->add_option("BACKUP", command.other, "The copy that backup made")->required();
}

/// What to say of a word that should be a subcommand and is none, or "".
QString unknownSubcommand(const CLI::App& app, int argc, const char* const* argv)
{
    const CLI::App* parent = &app;
    int at = 1;
    if (argc > 3 && (argv[1] == std::string("admin") || argv[1] == std::string("prompts"))) {
        parent = app.get_subcommand(argv[1]);
        at = 3;
    }
    if (at >= argc || argv[at][0] == '-')
        return {};
    QStringList names;
    for (const CLI::App* const sub : parent->get_subcommands({}))
        names << QString::fromStdString(sub->get_name());
    return names.contains(argv[at])
               ? QString()
               : unknown("subcommand of " + QString::fromStdString(parent->get_name()), argv[at], names);
}

} // namespace

Store Command::store(const db::schema::Table& table)
{
    Store store(file, progress);
    store.require(table);
    return store;
}

std::vector<Question> Command::questions()
{
    auto questions = store(db::schema::questions).questions();
    progress.clear();
    return questions;
}

Intake Command::intake(Texts demanded)
{
    progress.begin("Reading question");
    Intake intake(demanded, QString::fromStdString(level), progress);
    if (skipUnfit)
        intake.skipUnfit();
    return intake;
}

void Command::tell(const QStringList& lines, std::ostream& where)
{
    progress.clear();
    for (const QString& line : lines.join(u'\n').split(u'\n', Qt::SkipEmptyParts))
        where << shown(line).toStdString() << '\n';
}

void Command::finish()
{
    if (!out.flush())
        throw Failure("Standard output cannot be written, perhaps because the disk is full");
}

std::string counted(std::size_t number, const char* what)
{
    return std::to_string(number) + ' ' + what + (number == 1 ? "" : "s");
}

int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err, std::ostream* terminal)
{
    CLI::App app("Looks after the question bank of Orvanta.", "orvbank");
    app.require_subcommand(1);
    app.set_version_flag("--version", "orvbank " ORVANTA_VERSION);
    app.footer(
        "Exit code: 0 done, 1 not done because of what was told, 2 wrong usage, 3 check found faults.");
    Command command(out, err, terminal);
    declareCreateAndCheck(app, command);
    declareExchange(app, command);
    declareRows(app, command);
    declareUse(app, command);
    declareCare(app, command);
    try {
        app.parse(argc, argv);
        command.progress.clear();
        command.finish();
        return command.foundFaults ? Faulty : Done;
    } catch (const CLI::ParseError& error) {
        const QString unknown = error.get_exit_code() == 0 ? QString() : unknownSubcommand(app, argc, argv);
        command.tell({unknown}, err);
        return !unknown.isEmpty() || app.exit(error, out, err) != 0 ? WrongUsage : Done;
    } catch (const std::exception& error) {
        command.tell({QString::fromUtf8(error.what())}, err);
        return NotDone;
    }
}

} // namespace bank
