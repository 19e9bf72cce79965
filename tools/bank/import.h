#pragma once

#include "bank/intake.h"
#include "bank/store.h"

namespace bank {

struct ImportOptions
{
    bool replace = false; ///< the questions in the database give way, and the prompts if the source has any
    bool dryRun = false;  ///< the file is left as it is
};

/// Puts the questions and prompts of the intake into the database, all or none. Prompts that it has already
/// are left out. Throws Failure, or db::Failure, and changes no byte, if any question breaks a rule or stands
/// in the database already. Returns how many prompts were put in.
std::size_t importQuestions(Store& store, Intake& intake, const ImportOptions& options, Progress& progress);

} // namespace bank
