#pragma once

#include <cstdint>
#include <string_view>

#include "admin/Administration.h"
#include "admin/window/BoundControls.h"

namespace quorvel {

/// Writes what the user has typed into the boxes of the shown view: texts and the row height of a context. A write
/// shows the whole record again; texts that are typed in other boxes stay unwritten in them.
class TypedTexts {
 public:
  /// Administration and controls must outlive the object.
  TypedTexts(Administration& administration, BoundControls& controls)
      : m_administration(administration), m_controls(controls) {}
  TypedTexts(const TypedTexts&) = delete;
  TypedTexts& operator=(const TypedTexts&) = delete;

  /// Writes every changed box. False when one could not be written; the user has then seen why.
  bool Commit();
  /// Writes the box of one field if it is changed; false when it could not be written.
  bool Commit(const TypedField& field);
  /// Writes the chosen row height if it is changed.
  void CommitRowHeight();
  /// A write runs. A message box of it may be open, and no other action may begin.
  [[nodiscard]] bool IsCommitting() const noexcept { return m_isCommitting; }
  /// Whether a text of the shown view is not written.
  [[nodiscard]] bool HasUnwritten() const;
  /// Writes every changed box. False when one could not be written, but not twice in a row: the window then closes.
  bool CommitBeforeClosing();
  /// Restores the text of the box with the focus; false when it is unchanged.
  bool UndoFocused();

  /// Runs the write of a field that is no text.
  void ClickField(std::string_view field);
  /// While the busy flag that an error has left is set, no choice is written. Shows the tab again, which clears the
  /// flag, so that the user sees what is stored and can choose again. False when the flag is clear.
  bool LeaveBusyAfterError();

  /// The key of the record that cboID shows; 0 without one.
  [[nodiscard]] std::int32_t ShownKey() const;

 private:
  bool CommitLastRowHeight();
  [[nodiscard]] bool MustWriteRowHeight() const;
  [[nodiscard]] bool IsShown(const TypedField& field) const { return field.view == m_administration.CurrentView(); }
  template <typename Write>
  void KeepOthers(const Write& write, const BoundText* written = nullptr);

  Administration& m_administration;
  BoundControls& m_controls;
  bool m_isCommitting = false;
  bool m_wasRefused = false;
};

}  // namespace quorvel
