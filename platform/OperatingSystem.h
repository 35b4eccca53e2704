#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/DateTime.h"

/// Small calls of the operating system, which need no header each.
/// All texts are UTF-8.
namespace quorvel::os {

/// An environment variable's value; nothing when it is missing, or when the process runs with another identity than its
/// caller's (setuid).
[[nodiscard]] std::optional<std::string> Variable(const char* name);

/// The logon name of the current user; empty when it cannot be found.
[[nodiscard]] std::string LogonName();

/// Writes a printable warning into the system's log under the source "Quorvel". A log that cannot be written is not an
/// error.
void WriteWarning(std::string_view message);

/// The current local date and time.
[[nodiscard]] DateTime LocalNow();

/// A date in the short form of the user's regional settings; nothing without such settings, or outside their calendar.
[[nodiscard]] std::optional<std::string> RegionalShortDate(std::chrono::year_month_day date);
/// The same for a time of day, counted from midnight.
[[nodiscard]] std::optional<std::string> RegionalTimeOfDay(std::chrono::seconds time);

/// The operating system's text for an error, without a line break.
[[nodiscard]] std::string Explain(const std::error_code& error);

/// Whether an error means that the disk is full or that the user's quota or the largest file size is reached.
[[nodiscard]] bool IsOutOfSpace(const std::error_code& error);

/// A file that is open has another identity than the one that takes its place and its name. After it is closed and
/// deleted, a new file may get the same.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};
/// Nothing when there is no such file. On Windows always nothing: no program can remove a file there that is open.
[[nodiscard]] std::optional<FileIdentity> IdentityOf(const std::filesystem::path& file);

/// Creates a folder and what is missing above it (mode 0775, or less with a stricter umask); on Windows the folder
/// above decides who may use it. An existing folder stays as it is.
[[nodiscard]] std::error_code CreateSharedFolders(const std::filesystem::path& folder);

/// Creates an empty file that its owner and group may read and write (mode 0660, or less with a stricter umask); on
/// Windows the folder decides who may, and nothing is created. An existing file stays as it is; a symbolic link is
/// followed.
[[nodiscard]] std::error_code CreateSharedFile(const std::filesystem::path& file);

/// Gives a file that this user has made to the group of another file, if the user is a member of it. Otherwise, and on
/// Windows, nothing changes.
void TakeGroup(const std::filesystem::path& file, const std::filesystem::path& from) noexcept;

/// A file name in the form that the file functions take.
[[nodiscard]] std::filesystem::path PathOf(std::string_view name);

}  // namespace quorvel::os
