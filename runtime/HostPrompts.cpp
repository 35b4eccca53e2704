#include "runtime/HostPrompts.h"

#include <mutex>

#include <fmt/format.h>

#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "runtime/RemarkWindows.h"

namespace quorvel {

template <typename Question>
auto HostPrompts::AskOnTerminal(Question question, const NoWindow& noBox) {
  try {
    return question(m_terminal);
  } catch (const Error& noTerminal) {
    throw Error(noTerminal.Number(), noTerminal.Source(),
                fmt::format("{}\n{}", noTerminal.Description(), noBox.Description()));
  }
}

template <typename Question>
auto HostPrompts::Ask(Question question) {
  try {
    if (m_boxes) return question(*m_boxes);
    static_cast<void>(CurrentRemarkWindows("Quorvel.Prompts"));
  } catch (const NoWindow& noBox) {
    return AskOnTerminal(question, noBox);
  }
  // The start of the windows has installed prompts with boxes, unless the host keeps its own.
  Prompts& current = CurrentPrompts();
  return &current == this ? question(m_terminal) : question(current);
}

PromptAnswer HostPrompts::ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                      PromptIcon icon) {
  return Ask([&](Prompts& prompts) { return prompts.ShowMessage(text, title, buttons, icon); });
}

std::optional<std::string> HostPrompts::AskText(std::string_view prompt, std::string_view title) {
  return Ask([&](Prompts& prompts) { return prompts.AskText(prompt, title); });
}

// Before the first window there is no window to set a pointer over.
void HostPrompts::SetPointer(PointerShape shape) noexcept {
  if (m_boxes) m_boxes->SetPointer(shape);
}

void HostPrompts::KeepDrawing() noexcept {
  if (m_boxes) m_boxes->KeepDrawing();
}

void UseHostPrompts() {
  static std::once_flag once;
  std::call_once(once, [] {
    if (dynamic_cast<TerminalPrompts*>(&CurrentPrompts()) != nullptr) ExchangePrompts(std::make_shared<HostPrompts>());
  });
}

}  // namespace quorvel
