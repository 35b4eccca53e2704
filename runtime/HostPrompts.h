#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Error.h"
#include "platform/TerminalPrompts.h"

namespace quorvel {

/// The prompts inside a host: message boxes, and the terminal where no box can be shown, for example on another thread
/// than that of the windows. Without either, the error gives both reasons. After another error of a box the user may
/// have seen the question, so it is not asked again. Prompts without boxes start the window library with the first
/// question, which installs others. They live in the core and not with the published objects that need them, because a
/// host may unload the published objects and load them again.
class HostPrompts : public Prompts {
 public:
  explicit HostPrompts(std::shared_ptr<Prompts> boxes = nullptr, TerminalPrompts terminal = {})
      : m_boxes(std::move(boxes)), m_terminal(std::move(terminal)) {}

  PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                           PromptIcon icon) override;
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title) override;
  void SetPointer(PointerShape shape) noexcept override;
  void KeepDrawing() noexcept override;

 private:
  template <typename Question>
  auto Ask(Question question);
  template <typename Question>
  auto AskOnTerminal(Question question, const NoWindow& noBox);

  std::shared_ptr<Prompts> m_boxes;
  TerminalPrompts m_terminal;
};

/// Installs them, once per process, unless prompts other than the terminal's are installed.
void UseHostPrompts();

}  // namespace quorvel
