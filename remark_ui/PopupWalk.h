#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvel {

class Remark;
class RemarkContext;

/// The texts and button states of the pop-up window. A new one holds the texts that the controls are designed with.
struct PopupDisplay {
  bool previousEnabled = true;
  bool previousVisible = true;
  std::string nextCaption = "Next";
  std::string remarkType = "Text1";
  std::string remark = "Text1";
  std::string counter = "Label1";
};

/// Walks through the remarks of a context that pop up. The walk starts at the first remark of the list, whether that
/// pops up or not. The buttons depend on the position in the list, not on the number among the remarks that pop up.
/// Both are the same as long as these come first in the list, as the database returns them.
///
/// After an error the walk cannot be used.
class PopupWalk {
 public:
  /// Counts the remarks that pop up; the number does not follow later changes. Shares the context.
  explicit PopupWalk(std::shared_ptr<const RemarkContext> context);

  [[nodiscard]] std::int32_t PopupCount() const noexcept { return m_popupCount; }
  /// Whether Next closes the window.
  [[nodiscard]] bool IsAtEnd() const noexcept { return m_listIndex == m_popupCount; }
  /// Moves to the previous or next remark that pops up. Throws error 91 when the list has none.
  void Previous();
  void Next();
  /// Fills `display` from the current remark. A text that cannot be read keeps its previous value.
  void Fill(PopupDisplay& display) const noexcept;

 private:
  void Move(std::int32_t step);
  [[nodiscard]] std::shared_ptr<Remark> CurrentRemark() const;

  std::shared_ptr<const RemarkContext> m_context;
  std::int32_t m_listIndex = 1;
  std::int32_t m_popupOrdinal = 1;
  std::int32_t m_popupCount;
};

}  // namespace quorvel
