#pragma once

namespace admin {

constexpr const char* notEntered = "Username/Password not entered";
constexpr const char* notValid = "Invalid Username/Password";

} // namespace admin
