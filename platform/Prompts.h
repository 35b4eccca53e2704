#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

enum class PromptButtons { Ok, YesNo };
enum class PromptIcon { None, Question, Exclamation };
enum class PromptAnswer { Ok, Yes, No };

/// Pointer shapes by their classic numbers.
enum class PointerShape : int { Default = 0, Hourglass = 11 };

/// How the component asks and tells a person: message box, input box and pointer.
///
/// One set per process, used by every thread. The terminal implementation is there from the start; a window library
/// replaces it. All texts are UTF-8.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows `text` until it is answered. Throws Error when there is nobody to answer; the error quotes
  /// title and text so that nothing a person should have seen is lost.
  virtual PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                   PromptIcon icon) = 0;

  /// Asks for a line of text; nothing when the person cancels. Throws as ShowMessage does.
  virtual std::optional<std::string> AskText(std::string_view prompt, std::string_view title) = 0;

  /// Sets the pointer. Never throws; does nothing where there is no pointer.
  virtual void SetPointer(PointerShape shape) noexcept = 0;
};

/// The prompts in force. Never null.
[[nodiscard]] Prompts& CurrentPrompts();

/// Puts other prompts in force and returns those that were, which another thread may be using still; passing null puts
/// the terminal's back.
std::shared_ptr<Prompts> ExchangePrompts(std::shared_ptr<Prompts> prompts);

}  // namespace quorvel
