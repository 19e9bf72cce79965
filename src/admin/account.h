#pragma once

namespace admin {

/// The length of user names and passwords that the forms let through, in code points.
constexpr int accountLimit = 15;

constexpr const char* notEntered = "Username/Password not entered";
constexpr const char* notValid = "Invalid Username/Password";

} // namespace admin
