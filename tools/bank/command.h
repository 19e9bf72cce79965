#pragma once

#include <iosfwd>

namespace bank {

/// The program orvbank: does what its command line asks for, tells `out` what was done and `err` what is
/// wrong. Returns the exit code: 0 done (and nothing found), 1 not done, 2 wrong usage, 3 `check` found
/// faults. `terminal`, if there is one, is shown how far a long work has come.
int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
        std::ostream* terminal = nullptr);

} // namespace bank
