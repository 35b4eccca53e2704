#pragma once

#include "platform/TerminalPrompts.h"

namespace quorvel {

/// How the component asks and tells a person inside a host that has opened no window yet: by the boxes of the window
/// library, which is started for that, and where there can be none on the terminal. Where there is neither, the error
/// says why not of both. Stands with the prompts in force and not with the published objects that need it: a host may
/// unload those and load them again.
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

/// Puts them in force, once per process, unless somebody has put in others than the terminal's.
void UseHostPrompts();

}  // namespace quorvel
