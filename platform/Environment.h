#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quorvel {

/// An environment variable's value; the empty text when it is missing.
[[nodiscard]] std::string EnvironmentVariable(const char* name);

/// Logs a warning under the source "Quorvel": the application event log, or syslog. Never throws.
void LogWarning(std::string_view message) noexcept;

/// Sends warnings to `sink` instead of the system's log; an empty function restores it. For tests.
void RedirectWarnings(std::function<void(std::string_view)> sink);

/// The version in the component's file.
struct Version {
  int major;
  int minor;
  int revision;
};
[[nodiscard]] Version ComponentVersion() noexcept;

/// The project name that error sources begin with.
inline constexpr std::string_view kApplicationName = "Quorvel";

}  // namespace quorvel
