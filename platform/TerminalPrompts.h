#pragma once

#include <string>

#include "platform/Prompts.h"

namespace quorvel {

/// Prompts on the terminal, on Windows the console. Texts go to standard error and answers come from standard input;
/// standard output belongs to the program. Icons are not shown. A message with an OK button does not wait. The end of
/// input answers a question with No and cancels an input box. Unless both descriptors are a terminal, every prompt
/// throws Error -1 from "Quorvel.Prompts".
class TerminalPrompts : public Prompts {
 public:
  TerminalPrompts();
  /// On other descriptors, which the caller closes.
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
