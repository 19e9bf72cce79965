#pragma once

#include "bank/intake.h"
#include "bank/store.h"

namespace bank {

struct ImportOptions
{
    bool replace = false; ///< the questions in the database give way, and the prompts if the source has any
    bool update = false; ///< questions whose text the database has are changed, tallies go with their options
    bool skipKnown = false; ///< or left as they are
    bool skipUnfit = false; ///< what breaks a rule is told and left out
    bool shuffle = false;   ///< the options of new questions come in random order, unless they are numbers
    bool dryRun = false;    ///< the file is left as it is
};

struct Imported
{
    std::size_t added = 0;
    std::size_t changed = 0;
    std::size_t known = 0; ///< left as they are
    std::size_t prompts = 0;
    QStringList notes; ///< what was changed, and what asks nearly the same as a question of the database
};

/// Puts the questions and prompts of the intake into the database, all or none. Prompts that it has already
/// are left out. Throws Failure, or db::Failure, and changes no byte, if any question breaks a rule or,
/// unless an option says what then, stands in the database already.
Imported importQuestions(Store& store, Intake& intake, const ImportOptions& options, Progress& progress);

/// Puts prompts into the database that it has not, or all in place of the old ones. Returns how many.
std::size_t importPrompts(Store& store, const std::vector<Prompt>& prompts, bool replace);

} // namespace bank
