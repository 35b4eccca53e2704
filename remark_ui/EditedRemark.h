#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "remark_ui/CreatableTypes.h"

namespace quorvel {

class Remark;
class RemarkContext;
class RemarkType;

/// The edited remark as the editor shows it.
struct RemarkDisplay {
  const Remark* remark = nullptr;  ///< only tells whether it is another one than before
  std::string text;                ///< as text boxes take it
  bool isLocked = true;
  std::vector<TypeChoice> types;  ///< position 0 when canChooseType is false
  std::optional<std::size_t> selectedType;
  bool canChooseType = false;
  bool canSave = false;
  bool canDelete = false;
  std::string caption = "View/Edit Remark";
  std::string stamp{};  ///< author, date and time; empty for a remark that is not in the list
};

/// The content of the editor's controls.
struct RemarkInput {
  std::string text;
  /// Whether the content of the text box has changed since it was filled. A text box may return another text than the
  /// one it was filled with, so comparing with the remark's text does not answer this.
  bool isTextTouched = false;
  std::optional<TypeChoice> type;  ///< empty when no type is selected
};

/// The remark that the editor shows and changes, either selected from a context's list or new: what the user may do
/// with it, when Save is enabled, and what is stored. Knows no window; its one message goes through CurrentPrompts.
///
/// The host may change the list at any time, and may read it again, so that other objects stand for the same memos.
/// Every operation finds the remark that was shown, and never takes what is at its former position.
class EditedRemark {
 public:
  enum class Outcome { Nothing, Unchanged, Changed };

  /// Borrows `context`. No remark is selected at first.
  explicit EditedRemark(RemarkContext& context) noexcept : m_context(context) {}

  [[nodiscard]] const RemarkDisplay& Display() const noexcept { return m_display; }
  /// Null when none is selected.
  [[nodiscard]] const std::shared_ptr<Remark>& Shown() const noexcept { return m_remark; }

  /// Selects a remark; none when it is null or the list does not have it.
  void Show(const std::shared_ptr<Remark>& remark);
  /// Starts a new remark, which joins the list when it is saved.
  void ShowNew(std::shared_ptr<RemarkType> type, std::int32_t typePosition);
  /// Call when the user has typed in the text box.
  void TextEdited() noexcept;
  /// Call when the user has chosen in the list of types.
  void TypeChosen(const RemarkInput& input);

  /// Stores the input in the list's remark and returns whether that changed anything. A remark that is not in the list
  /// joins it, also one that the host has taken out: what was typed is not lost. Disables Save until the remark is
  /// shown again. Returns Nothing when no remark is selected or the text is blank, which a message reports. After an
  /// error Save stays enabled, and another call completes what this one has begun.
  Outcome Save(const RemarkInput& input);
  /// Saves the input before another remark is shown or the window closes. Returns Nothing when Save is disabled or the
  /// text is blank, which is dropped without a message.
  Outcome CommitPending(const RemarkInput& input);
  /// Whether showing another remark would lose what the user has typed or chosen, or a new remark.
  [[nodiscard]] bool IsPending(const RemarkInput& input) const;
  /// Whether the list has the remark. It has no new one, and none that the host has taken out.
  [[nodiscard]] bool IsListed() const;
  /// Removes the remark from the list, or forgets a new one. No remark is selected afterwards.
  void Remove();

 private:
  template <typename IsSelected>
  void OfferTypes(const IsSelected& isSelected);
  [[nodiscard]] std::shared_ptr<Remark> Listed() const;
  [[nodiscard]] std::shared_ptr<RemarkType> ChosenType(const RemarkInput& input) const;
  [[nodiscard]] std::string TextOf(const RemarkInput& input) const;
  void RefuseEmptyText() const;

  RemarkContext& m_context;
  std::shared_ptr<Remark> m_remark;
  bool m_isNew = false;  ///< begun here and not saved in the list yet
  RemarkDisplay m_display;
};

}  // namespace quorvel
