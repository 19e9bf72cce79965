#include "bank/password.h"

#include "bank/failure.h"

#include <QStringDecoder>

#include <bsd/readpassphrase.h>

#include <algorithm>
#include <cstring>
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

QString askHidden(const char* prompt)
{
    std::array<char, 256> typed{}; // more than fits is found too long
    if (!::readpassphrase(prompt, typed.data(), typed.size(), RPP_REQUIRE_TTY)) {
        throw Failure("Nothing was changed: there is no terminal to ask for the password; run this in "
                      "one, or let --generate make a password");
    }
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString password =
        decoder(QByteArrayView(typed.data(), static_cast<qsizetype>(std::strlen(typed.data()))));
    ::explicit_bzero(typed.data(), typed.size());
    if (decoder.hasError())
        throw Failure("Nothing was changed: the password is not valid UTF-8");
    return password;
}

} // namespace bank
