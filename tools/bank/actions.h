#pragma once

#include "bank/formats.h"
#include "bank/import.h"
#include "bank/progress.h"
#include "bank/stats.h"

#include <string>
#include <vector>

namespace bank {

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
    ImportOptions import;
    StatsOrder order = StatsOrder::Number;
    bool asCsv = false;
    bool reset = false;
    bool forOthers = false;
    bool generate = false;
    bool yes = false;
    bool foundFaults = false;

    void tell(const QStringList& lines, std::ostream& where);
};

/// The subcommands of orvbank. Each tells `out` what was done, and throws Failure or db::Failure if it was
/// not.
namespace actions {
void create(Command& command);
void check(Command& command);
void importSource(Command& command);
void exportBank(Command& command);
void listOrSearch(Command& command);
void show(Command& command);
void set(Command& command);
void remove(Command& command);
void stats(Command& command);
void sheet(Command& command);
void importPromptFile(Command& command);
void exportPrompts(Command& command);
void listAccounts(Command& command);
void addAccount(Command& command);
void setPassword(Command& command);
void renameAccount(Command& command);
void removeAccount(Command& command);
void backup(Command& command);
void restoreBackup(Command& command);
} // namespace actions

} // namespace bank
