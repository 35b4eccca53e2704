#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::ui {

/// A text that appeared in a longer text, or vanished from it.
struct TextChange {
  bool isInsertion = false;
  int offset = 0;  ///< in characters
  int length = 0;  ///< in characters
  std::string text;
};

/// The steps in which changes of a text are taken back and brought again. Characters typed or deleted one after the
/// other are one step up to the next word or the next pause; any other action of the user is a step of its own.
class EditHistory {
 public:
  using Clock = std::chrono::steady_clock;
  /// Changes in the order in which they were made.
  using Changes = std::vector<TextChange>;

  /// Changes between the two calls belong to one action.
  void Begin() noexcept { m_isInAction = true; }
  void End(Clock::time_point now);
  void Add(TextChange change, Clock::time_point now);
  void Forget() noexcept;

  /// The changes to take back, or to make again; none when there is no step.
  [[nodiscard]] Changes Undo() { return Move(m_done, m_undone); }
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
  void Commit(Changes changes, Clock::time_point now);

  std::vector<Step> m_done;
  std::vector<Step> m_undone;
  Changes m_action;
  bool m_isInAction = false;
};

}  // namespace quorvel::ui
