#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Prompts.h"

namespace quorvel::test {

/// Prompts that answer from a script and remember what they showed. A question without a scripted answer fails
/// the test and gets No or a cancel.
class ScriptedPrompts : public Prompts {
 public:
  struct Shown {
    std::string text;
    std::string title;
    PromptButtons buttons;
    PromptIcon icon;
  };

  PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                           PromptIcon icon) override;
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title) override;
  void SetPointer(PointerShape shape) noexcept override { pointers.push_back(shape); }
  void KeepDrawing() noexcept override;

  std::deque<PromptAnswer> answers;
  std::deque<std::optional<std::string>> texts;
  std::function<void()> meanwhile;  ///< what the host does once, while the next message is shown or the next wait draws
  std::vector<Shown> shown;
  std::vector<PointerShape> pointers;
  std::atomic<int> drawings = 0;  ///< how often a wait let the windows draw themselves
};

/// Installs scripted prompts, and the previous ones again at the end.
class PromptsGuard {
 public:
  PromptsGuard();
  ~PromptsGuard();
  PromptsGuard(const PromptsGuard&) = delete;
  PromptsGuard& operator=(const PromptsGuard&) = delete;
  ScriptedPrompts* operator->() const { return m_prompts.get(); }

 private:
  std::shared_ptr<ScriptedPrompts> m_prompts = std::make_shared<ScriptedPrompts>();
  std::shared_ptr<Prompts> m_before;
};

}  // namespace quorvel::test
