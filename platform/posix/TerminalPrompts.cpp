#include "platform/TerminalPrompts.h"

#include <unistd.h>

#include <cerrno>

#include "platform/Text.h"

namespace quorvel {

bool TerminalPrompts::HasTerminal() const { return ::isatty(m_input) == 1 && ::isatty(m_output) == 1; }

void TerminalPrompts::Write(std::string_view text) const {
  const std::string printable = Printable(text);
  for (std::size_t written = 0; written < printable.size();) {
    const auto count = ::write(m_output, printable.data() + written, printable.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    written += static_cast<std::size_t>(count);
  }
}

std::optional<std::string> TerminalPrompts::ReadLine() const {
  // Byte by byte: the host may read the input after the line.
  std::string line;
  while (true) {
    char byte = 0;
    const auto count = ::read(m_input, &byte, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return line.empty() ? std::nullopt : std::optional(line);
    if (byte == '\n') return line;
    line += byte;
  }
}

}  // namespace quorvel
