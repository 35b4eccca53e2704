#pragma once

#include <string>

#include "platform/Prompts.h"

namespace quorvel {

/// Prompts on the terminal: texts go to standard error, answers come from standard input, and standard output
/// is left to the program. On Windows the terminal is the console. A message with an OK button does not wait. The end
/// of input answers a question with No and cancels an input box. Without a terminal on both every prompt throws Error
/// -1 from "Quorvel.Prompts".
class TerminalPrompts : public Prompts {
 public:
  TerminalPrompts();
  /// On other descriptors, which stay the caller's.
  TerminalPrompts(int input, int output) : m_input(input), m_output(output) {}

  PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                           PromptIcon icon) override;
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title) override;
  void SetPointer(PointerShape shape) noexcept override;

 private:
  void RequireTerminal(std::string_view text, std::string_view title) const;
  [[nodiscard]] bool HasTerminal() const;
  void Write(std::string_view text) const;
  [[nodiscard]] std::optional<std::string> ReadLine() const;

  int m_input;
  int m_output;
};

}  // namespace quorvel
