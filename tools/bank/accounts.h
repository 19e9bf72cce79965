#pragma once

#include "bank/store.h"

#include <iosfwd>

namespace bank {

/// Why the login cannot be given this name or this password, or "". It takes 15 code points, no blank in a
/// name and none at the ends of a password.
[[nodiscard]] QString nameFault(const QString& name);
[[nodiscard]] QString passwordFault(const QString& password);

enum class AccountChange { Add, SetPassword };

/// Adds an account or sets the password of one. The password is asked for at the terminal, or made and told
/// to `out`. Throws Failure, and changes nothing, if the account or its want is unexpected, if there is no
/// terminal or if the password cannot be told.
void changeAccount(Store& store, AccountChange change, const std::string& name, bool generate,
                   std::ostream& out);

} // namespace bank
