#pragma once

#include <iosfwd>

namespace bank {

/// The program orvbank: does what its command line asks for, tells `out` what was done and `err` what
/// is wrong. Returns the exit code: 0 done, 1 bad input or a file that cannot be written, 2 wrong usage.
int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace bank
