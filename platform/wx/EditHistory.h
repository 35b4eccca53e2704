#pragma once

#include <chrono>
#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "platform/wx/GuardedHandler.h"

namespace quorvel::ui {

/// A text that appears in a longer text, or vanishes from it. Offsets count wchar_t.
struct TextChange {
  bool isInsertion = false;
  std::size_t offset = 0;
  std::wstring text;

  [[nodiscard]] std::size_t End() const noexcept { return offset + text.size(); }
};

/// The steps in which changes of a text are taken back and brought again. Characters typed or deleted one after the
/// other are one step up to the next word or the next pause; any other action of the user is a step of its own.
class EditHistory {
 public:
  using Clock = std::chrono::steady_clock;
  /// Changes in the order in which they are made.
  using Changes = std::vector<TextChange>;

  /// Adds the changes of one action.
  void Add(Changes action, Clock::time_point now);
  /// Changes that are added between Begin and End belong to one action.
  void Begin() noexcept { m_isInAction = true; }
  void Add(TextChange change, Clock::time_point now);
  void End(Clock::time_point now);
  void Forget() noexcept;

  /// Runs an action on the history. A lost history does no harm; an exception would end the host.
  template <typename Action>
  void Guard(const Action& action) noexcept {
    RunGuarded(action, [this](const std::exception_ptr& /*noMemory*/) { Forget(); });
  }

  /// The changes that take the last step back, or bring it again; none when there is no step.
  [[nodiscard]] Changes Undo();
  [[nodiscard]] Changes Redo() { return Move(m_undone, m_done); }

 private:
  struct Step {
    Changes changes;
    Clock::time_point last;
    bool isTyping = false;  ///< may go on
  };

  static Changes Move(std::vector<Step>& from, std::vector<Step>& to);
  static bool Continues(const TextChange& before, const TextChange& change);
  static void Append(TextChange& before, const TextChange& change);

  std::vector<Step> m_done;
  std::vector<Step> m_undone;
  Changes m_action;
  bool m_isInAction = false;
};

/// The changes of one action, for text boxes that do not report them: it turned `before` into `after` and left the
/// insertion point at `caret`. That tells which of several equal characters was typed or deleted.
[[nodiscard]] EditHistory::Changes Difference(std::wstring_view before, std::wstring_view after, std::size_t caret);

}  // namespace quorvel::ui
