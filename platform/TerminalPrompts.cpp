#include "platform/TerminalPrompts.h"

#include <fmt/format.h>

#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

constexpr int kStandardInput = 0;
constexpr int kStandardError = 2;

/// The answer in a line; nothing when it is neither yes nor no.
std::optional<PromptAnswer> ReadAnswer(std::string_view line) {
  const std::string_view answer = TrimBlanks(line);
  if (EqualIgnoringCase(answer, "y") || EqualIgnoringCase(answer, "yes")) return PromptAnswer::Yes;
  if (EqualIgnoringCase(answer, "n") || EqualIgnoringCase(answer, "no")) return PromptAnswer::No;
  return std::nullopt;
}

}  // namespace

TerminalPrompts::TerminalPrompts() : TerminalPrompts(kStandardInput, kStandardError) {}

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
  if (HasTerminal()) return;
  throw Error(ErrorNumber::Component, "Quorvel.Prompts",
              fmt::format("There is no terminal to show a message on: \"{}\": {}", title, text));
}

}  // namespace quorvel
