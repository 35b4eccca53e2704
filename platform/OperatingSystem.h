#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/DateTime.h"

/// What the component asks of the operating system besides the faces that have a header of their own.
/// All texts are UTF-8.
namespace quorvel::os {

/// An environment variable's value; nothing when it is missing.
[[nodiscard]] std::optional<std::string> Variable(const char* name);

/// The logon name of the current user; empty when it cannot be found.
[[nodiscard]] std::string LogonName();

/// Writes a warning into the system's log under the source "Quorvel". A log that cannot be written is no error.
void WriteWarning(std::string_view message);

/// The current local date and time.
[[nodiscard]] DateTime LocalNow();

/// A date in the short form of the user's regional settings; nothing without such settings, or for a date that they do
/// not reach.
[[nodiscard]] std::optional<std::string> RegionalShortDate(std::chrono::year_month_day date);

/// What the operating system says of an error, without the line's end.
[[nodiscard]] std::string Explain(const std::error_code& error);

/// Whether an error says that there is no room: the disk, the user's share of it or the longest file is full.
[[nodiscard]] bool IsOutOfSpace(const std::error_code& error);

/// The name of a file as the file functions take it.
[[nodiscard]] std::filesystem::path PathOf(std::string_view name);

}  // namespace quorvel::os
