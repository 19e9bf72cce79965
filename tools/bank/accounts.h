#pragma once

#include <QString>

namespace bank {

/// Why the login cannot be given this name or this password, or "". It takes 15 code points, no blank in a
/// name and none at the ends of a password.
[[nodiscard]] QString nameFault(const QString& name);
[[nodiscard]] QString passwordFault(const QString& password);

/// A new password of 12 lower-case letters and digits, each drawn evenly from the system's source of
/// randomness. Those that are mistaken for one another (0 o, 1 i l) are left out.
[[nodiscard]] std::string newPassword();

} // namespace bank
