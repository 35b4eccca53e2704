#include "platform/TerminalPrompts.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>

#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

/// What a person meant; nothing when it is neither.
std::optional<PromptAnswer> ReadAnswer(std::string_view line) {
  const std::string_view answer = TrimBlanks(line);
  if (EqualIgnoringCase(answer, "y") || EqualIgnoringCase(answer, "yes")) return PromptAnswer::Yes;
  if (EqualIgnoringCase(answer, "n") || EqualIgnoringCase(answer, "no")) return PromptAnswer::No;
  return std::nullopt;
}

}  // namespace

TerminalPrompts::TerminalPrompts() : TerminalPrompts(STDIN_FILENO, STDERR_FILENO) {}

PromptAnswer TerminalPrompts::ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                          PromptIcon /*icon*/) {
  RequireTerminal(text, title);
  Write(fmt::format("{}: {}\n", title, text));
  if (buttons == PromptButtons::Ok) return PromptAnswer::Ok;
  while (true) {
    Write("[y/n] ");
    const auto line = ReadLine();
    if (!line) return PromptAnswer::No;
    if (const auto answer = ReadAnswer(*line)) return *answer;
  }
}

std::optional<std::string> TerminalPrompts::AskText(std::string_view prompt, std::string_view title) {
  RequireTerminal(prompt, title);
  Write(fmt::format("{}: {}\n> ", title, prompt));
  return ReadLine();
}

void TerminalPrompts::SetPointer(PointerShape /*shape*/) noexcept {}

void TerminalPrompts::RequireTerminal(std::string_view text, std::string_view title) const {
  if (::isatty(m_input) == 1 && ::isatty(m_output) == 1) return;
  throw Error(ErrorNumber::Component, "Quorvel.Prompts",
              fmt::format("There is no terminal to show a message on: \"{}\": {}", title, text));
}

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
  // Byte by byte: what follows the line is the host's to read.
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
