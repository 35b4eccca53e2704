#include "platform/TerminalPrompts.h"

#include <io.h>
#include <windows.h>

#include <algorithm>

#include "platform/Text.h"
#include "platform/windows/WideText.h"

namespace quorvel {
namespace {

constexpr std::size_t kLongestPiece = 8192;
constexpr wchar_t kEndOfInput = 0x1A;  // Ctrl+Z, as the first character of a line

/// The console of a descriptor; only the console's functions use UTF-16.
HANDLE ConsoleOf(int descriptor) {
  return reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));  // NOLINT(performance-no-int-to-ptr)
}

bool IsConsole(int descriptor) {
  DWORD mode = 0;
  return ::GetConsoleMode(ConsoleOf(descriptor), &mode) != 0;
}

}  // namespace

bool TerminalPrompts::HasTerminal() const { return IsConsole(m_input) && IsConsole(m_output); }

void TerminalPrompts::Write(std::string_view text) const {
  const auto printable = os::ToWide(Printable(text));
  if (!printable) return;
  for (std::wstring_view rest = *printable; !rest.empty();) {
    const auto size = static_cast<DWORD>(std::min(rest.size(), kLongestPiece));
    DWORD written = 0;
    if (::WriteConsoleW(ConsoleOf(m_output), rest.data(), size, &written, nullptr) == 0 || written == 0) return;
    rest.remove_prefix(written);
  }
}

std::optional<std::string> TerminalPrompts::ReadLine() const {
  // Unit by unit: the host may read the input after the line.
  std::wstring line;
  while (true) {
    wchar_t unit = 0;
    DWORD count = 0;
    const bool isRead = ::ReadConsoleW(ConsoleOf(m_input), &unit, 1, &count, nullptr) != 0 && count == 1;
    if (!isRead) return line.empty() ? std::nullopt : std::optional(os::FromWide(line));
    if (unit != L'\n') {
      line += unit;
      continue;
    }
    if (line.ends_with(L'\r')) line.pop_back();
    return line.starts_with(kEndOfInput) ? std::nullopt : std::optional(os::FromWide(line));
  }
}

}  // namespace quorvel
