#pragma once

#include "platform/Prompts.h"

namespace quorvel::ui {

/// Message and input boxes of the desktop, and the pointer over the component's windows. A box belongs to the
/// component's topmost window, if one is open. ShowMessage and AskText call RequireWindowSystem first and pass its
/// error on; SetPointer and KeepDrawing do nothing before windows were opened.
class DialogPrompts : public Prompts {
 public:
  PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                           PromptIcon icon) override;
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title) override;
  void SetPointer(PointerShape shape) noexcept override;
  void KeepDrawing() noexcept override;
};

/// Shows the default pointer until the end of the scope, and then the previous one again.
class DefaultPointer {
 public:
  DefaultPointer();
  ~DefaultPointer();
  DefaultPointer(const DefaultPointer&) = delete;
  DefaultPointer& operator=(const DefaultPointer&) = delete;

 private:
  bool m_wasWaiting;
};

}  // namespace quorvel::ui
