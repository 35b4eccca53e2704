#pragma once

#include "platform/TerminalPrompts.h"

namespace quorvel {

/// The prompts inside a host that has opened no window yet. They start the window library and use its boxes; where it
/// cannot start they use the terminal. Without either, the error gives both reasons. They live in the core and not with
/// the published objects that need them, because a host may unload the published objects and load them again.
class HostPrompts : public Prompts {
 public:
  PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                           PromptIcon icon) override;
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title) override;
  void SetPointer(PointerShape shape) noexcept override;

 private:
  template <typename Question>
  auto Ask(Question question);

  TerminalPrompts m_terminal;
};

/// Installs them, once per process, unless prompts other than the terminal's are installed.
void UseHostPrompts();

}  // namespace quorvel
