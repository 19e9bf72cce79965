#include "bank/password.h"

#include <algorithm>
#include <random>
#include <string_view>

namespace bank {

std::string newPassword()
{
    constexpr std::string_view symbols = "abcdefghjkmnpqrstuvwxyz23456789";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> index(0, symbols.size() - 1);
    std::string password(12, ' ');
    std::generate(password.begin(), password.end(), [&] { return symbols.at(index(source)); });
    return password;
}

} // namespace bank
