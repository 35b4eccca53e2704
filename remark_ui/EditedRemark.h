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

/// What the editor shows of the remark at hand.
struct RemarkDisplay {
  std::string text;  ///< as text boxes take it
  bool isLocked = true;
  std::vector<TypeChoice> types;  ///< position 0 where there is nothing to choose
  std::optional<std::size_t> selectedType;
  bool canChooseType = false;
  bool canSave = false;
  bool canDelete = false;
  std::string caption = "View/Edit Remark";
};

/// What stands in the editor's controls.
struct RemarkInput {
  std::string text;
  /// Whether the text box holds anything else than right after it was filled, which need not be what it was filled
  /// with.
  bool isTextTouched = false;
  std::optional<TypeChoice> type;  ///< nothing when no type is selected
};

/// The remark that the editor shows and changes, selected from a context's list or being created: what the user may do
/// with it, when Save may be pressed, and what is stored. Needs no window; the one message is asked through
/// CurrentPrompts.
///
/// Not for use between Close and Open.
class EditedRemark {
 public:
  enum class Outcome { Nothing, Unchanged, Changed };

  /// Borrows `context`; no remark is selected.
  void Open(RemarkContext& context) noexcept;
  /// Forgets everything.
  void Close() noexcept;

  [[nodiscard]] const RemarkDisplay& Display() const noexcept { return m_display; }
  /// The remark's 1-based position in the list; 0 when none is selected.
  [[nodiscard]] std::int32_t Position() const noexcept { return m_position; }

  /// Selects the remark at a 1-based position; none below 1.
  void Show(std::int32_t position);
  /// Begins a new remark. It joins the list when it is saved.
  void ShowNew(std::shared_ptr<RemarkType> type, std::int32_t typePosition);
  /// The user typed in the text box.
  void TextEdited() noexcept;
  /// The user chose in the list of types.
  void TypeChosen(const TypeChoice& type) noexcept;

  /// Puts the input into the remark and a new remark into the list, and says whether that changed anything. Nothing
  /// when the text is empty, which is refused with a message, or no remark is at hand. Save may not be pressed again
  /// until the remark is shown anew. Strong guarantee.
  Outcome Save(const RemarkInput& input);
  /// Saves what would otherwise be left behind: nothing where Save may not be pressed; a text of blanks goes without a
  /// word.
  Outcome CommitPending(const RemarkInput& input);
  /// Takes the remark out of the list. A new one is just forgotten. None is selected afterwards.
  void Remove();

 private:
  template <typename IsSelected>
  void OfferTypes(const IsSelected& isSelected);
  [[nodiscard]] std::shared_ptr<RemarkType> ChosenType(const RemarkInput& input) const;

  RemarkContext* m_context = nullptr;
  std::shared_ptr<Remark> m_remark;
  std::int32_t m_position = 0;
  RemarkDisplay m_display;
};

}  // namespace quorvel
