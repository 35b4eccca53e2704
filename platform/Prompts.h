#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

enum class PromptButtons { Ok, YesNo };
enum class PromptIcon { None, CriticalStop, Question, Exclamation };
enum class PromptAnswer { Ok, Yes, No };

/// Pointer shapes by their classic numbers.
enum class PointerShape : int { Default = 0, Hourglass = 11 };

/// How the component talks to the user: message box, input box and pointer. Every thread of the process uses the same
/// prompts (CurrentPrompts). All texts are UTF-8.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows `text` until it is answered. Throws Error when nothing can be shown; the error quotes title and text, so
  /// that no message is lost.
  virtual PromptAnswer ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                   PromptIcon icon) = 0;

  /// Asks for a line of text; nothing when the user cancels. Throws as ShowMessage does.
  virtual std::optional<std::string> AskText(std::string_view prompt, std::string_view title) = 0;

  /// Sets the pointer. Never throws; does nothing where there is no pointer.
  virtual void SetPointer(PointerShape shape) noexcept = 0;

  /// Call it again and again while this thread waits for another program. Lets the component's windows draw themselves;
  /// no key, click or timer takes effect. On Windows the system may deliver a message that another thread sends, and
  /// run the host's handler of it; the waiting connection refuses what this handler asks of it. Never throws; does
  /// nothing on a thread without windows.
  virtual void KeepDrawing() noexcept {}
};

}  // namespace quorvel
