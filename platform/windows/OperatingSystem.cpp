#include "platform/OperatingSystem.h"

#include <windows.h>
// After windows.h, whose types it uses.
#include <lmcons.h>

#include <array>

#include "EventMessages.h"
#include "platform/Environment.h"
#include "platform/UniqueHandle.h"
#include "platform/windows/WideText.h"

namespace quorvel::os {
namespace {

struct EventSourceTraits {
  using Type = HANDLE;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type source) noexcept { ::DeregisterEventSource(source); }
};
using EventSource = UniqueHandle<EventSourceTraits>;

struct LocalMemoryTraits {
  using Type = wchar_t*;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type memory) noexcept { ::LocalFree(memory); }
};
using LocalText = UniqueHandle<LocalMemoryTraits>;

}  // namespace

std::optional<std::string> Variable(const char* name) {
  const auto wideName = ToWide(name);
  std::wstring value;
  // Another thread may make the value longer between the two calls.
  for (DWORD size = wideName ? ::GetEnvironmentVariableW(wideName->c_str(), nullptr, 0) : 0; size > value.size();) {
    value.resize(size);
    size = ::GetEnvironmentVariableW(wideName->c_str(), value.data(), size);
    if (size < value.size()) return FromWide({value.data(), size});
  }
  return std::nullopt;
}

std::string LogonName() {
  std::array<wchar_t, UNLEN + 1> name{};
  auto size = static_cast<DWORD>(name.size());
  // The returned size includes the terminating zero.
  return ::GetUserNameW(name.data(), &size) != 0 && size > 0 ? FromWide({name.data(), size - 1}) : "";
}

void WriteWarning(std::string_view message) {
  std::string lines;
  // The event log's line breaks; an entry may have several lines.
  for (const char character : message) lines += character == '\n' ? "\r\n" : std::string(1, character);
  const auto name = ToWide(kApplicationName);
  const auto text = ToWide(lines);
  if (!name || !text) return;
  const EventSource source(::RegisterEventSourceW(nullptr, name->c_str()));
  const wchar_t* line = text->c_str();
  if (source) ::ReportEventW(source.Get(), EVENTLOG_WARNING_TYPE, 0, QUORVEL_MSG_TEXT, nullptr, 1, 0, &line, nullptr);
}

DateTime LocalNow() {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  const auto date = std::chrono::year(now.wYear) / now.wMonth / now.wDay;
  return std::chrono::local_days(date) + std::chrono::hours(now.wHour) + std::chrono::minutes(now.wMinute) +
         std::chrono::seconds(now.wSecond) + std::chrono::milliseconds(now.wMilliseconds);
}

std::string Explain(const std::error_code& error) {
  if (error.category() != std::system_category()) return error.message();
  LocalText text;
  // The category's own message has the machine's code page.
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(error.value()), 0, reinterpret_cast<wchar_t*>(text.Put()), 0, nullptr);
  if (length == 0) return "error " + std::to_string(error.value());
  std::string message = FromWide({text.Get(), length});
  message.erase(message.find_last_not_of(" .\r\n") + 1);
  return message;
}

bool IsOutOfSpace(const std::error_code& error) {
  constexpr int kQuotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED, which some headers lack
  return error == std::errc::no_space_on_device || error == std::errc::file_too_large ||
         error == std::error_code(kQuotaExceeded, std::system_category());
}

std::optional<FileIdentity> IdentityOf(const std::filesystem::path& /*file*/) { return std::nullopt; }

std::error_code CreateSharedFolders(const std::filesystem::path& folder) {
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  return failure;
}

std::error_code CreateSharedFile(const std::filesystem::path& /*file*/) { return {}; }

void TakeGroup(const std::filesystem::path& /*file*/, const std::filesystem::path& /*from*/) noexcept {}

std::filesystem::path PathOf(std::string_view name) { return std::u8string(name.begin(), name.end()); }

}  // namespace quorvel::os
