#pragma once

#include <QString>

#include <string>

namespace bank {

/// A new password of 12 lower-case letters and digits, each drawn evenly from the system's source of
/// randomness. Those that are mistaken for one another (0 o, 1 i l) are left out.
[[nodiscard]] std::string newPassword();

/// What is typed at the terminal behind `prompt`, which does not show it. Throws Failure if there is no
/// terminal, or if it is not UTF-8.
[[nodiscard]] QString askHidden(const char* prompt);

} // namespace bank
