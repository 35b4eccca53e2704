#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Keeps passwords from other users and programs.
namespace quorvel::cli {

/// Copies the program's arguments. Where the list of processes shows them, all that follows a Password= or Pwd= becomes
/// asterisks.
[[nodiscard]] std::vector<std::string> TakeArguments(std::span<char*> arguments);

/// A setting's value with asterisks for what follows a Password= or Pwd= after a semicolon. Such a key gets into the
/// connection string as the setting Password does.
[[nodiscard]] std::string WithoutPassword(std::string_view value);

/// A crash leaves no file with the memory, which may hold the password of the settings. No other program of the same
/// user can read the memory.
void LeaveNoCoreDump() noexcept;

}  // namespace quorvel::cli
