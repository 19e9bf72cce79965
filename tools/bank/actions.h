#pragma once

#include "bank/formats.h"
#include "bank/progress.h"
#include "bank/store.h"

#include <string>
#include <vector>

namespace bank {

enum class StatsOrder { Number, HardestFirst, EasiestFirst };

/// What the command line says, and where the answers go.
struct Command
{
    Command(std::ostream& answers, std::ostream& messages, std::ostream* terminal)
        : out(answers), err(messages), progress(terminal, &messages)
    {
    }

    std::ostream& out;
    std::ostream& err;
    Progress progress;
    std::string file;
    std::string other; ///< the file or folder besides it
    std::string name;
    std::string newName;
    std::string level;
    const Format* format = nullptr;
    std::vector<std::string> words;
    qint64 number = 0;        ///< of a question
    std::size_t perLevel = 5; ///< questions of a sheet
    StatsOrder order = StatsOrder::Number;
    bool replace = false;   ///< what the database holds gives way to what is imported
    bool update = false;    ///< questions whose text it has are changed, tallies go with their options
    bool skipKnown = false; ///< or left as they are
    bool skipUnfit = false; ///< what breaks a rule is told and left out
    bool shuffle = false;   ///< the options of new questions come in random order, unless they are numbers
    bool dryRun = false;    ///< the file is left as it is
    bool asCsv = false;
    bool reset = false;
    bool forOthers = false;
    bool generate = false;
    bool yes = false;
    bool foundFaults = false;

    /// The database, which has this table with all its fields.
    [[nodiscard]] Store store(const db::schema::Table& table);
    /// All its questions.
    [[nodiscard]] std::vector<Question> questions();
    /// What is taken out of the other file, with the level of the command line for questions whose source
    /// gives none.
    [[nodiscard]] Intake intake(Texts demanded);

    /// Makes the other file, or writes to the standard output if it is "-".
    void write(const QByteArray& content);
    void tell(const QStringList& lines, std::ostream& where);
    /// Throws Failure unless all answers have been written.
    void finish();
};

/// "1 question", "2 questions"
[[nodiscard]] std::string counted(std::size_t number, const char* what);

/// The subcommands of orvbank. Each tells `out` what was done, and throws Failure or db::Failure, and has
/// changed nothing, if it was not.
namespace actions {
void create(Command& command);
void check(Command& command);
void importSource(Command& command);
void exportBank(Command& command);
void importPrompts(Command& command);
void exportPrompts(Command& command);
void listOrSearch(Command& command);
void show(Command& command);
void set(Command& command);
void remove(Command& command);
void stats(Command& command);
void sheet(Command& command);
void listAccounts(Command& command);
void addAccount(Command& command);
void setPassword(Command& command);
void renameAccount(Command& command);
void removeAccount(Command& command);
void backup(Command& command);
void restoreBackup(Command& command);
} // namespace actions

} // namespace bank
