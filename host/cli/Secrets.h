#pragma once

#include <span>
#include <string>
#include <vector>

/// Keeps passwords from other users and programs.
namespace quorvel::cli {

/// Copies the program's arguments. Where the list of processes shows them, the value of a Password= becomes asterisks.
[[nodiscard]] std::vector<std::string> TakeArguments(std::span<char*> arguments);

/// A crash leaves no file with the memory, which may hold the password of the settings.
void LeaveNoCoreDump() noexcept;

}  // namespace quorvel::cli
