#pragma once

#include <string>

namespace bank {

/// A new password of 12 lower-case letters and digits, each drawn evenly from the system's source of
/// randomness. Those that are mistaken for one another (0 o, 1 i l) are left out.
[[nodiscard]] std::string newPassword();

} // namespace bank
