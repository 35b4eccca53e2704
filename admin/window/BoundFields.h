#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <wx/string.h>

#include "data/Controls.h"

class wxButton;
class wxCheckBox;
class wxSpinCtrl;
class wxTextCtrl;
class wxWindow;

// The faces of Controls.h over the toolkit's controls. A face is attached to its control once and used as long as the
// control lives. Nothing that the program sets raises an event.

namespace quorvel {

/// A text box. It knows whether the user has changed it since it was filled.
class BoundText : public TextField {
 public:
  /// The box refuses an input that would make the stored text longer than `maxLength`, in units of UTF-16 and with two
  /// for a line break, as the database counts.
  void Attach(wxTextCtrl& box, std::size_t maxLength);

  /// Line breaks are those of the text that was set last.
  [[nodiscard]] std::string Text() const override;
  void SetText(std::string_view text) override;

  [[nodiscard]] bool IsChanged() const;
  /// Shows the text that was set last.
  void Undo() { SetText(std::string(m_stored)); }
  /// Takes the text that the box shows for the one that was set last.
  void Accept() { SetText(Text()); }
  /// Shows again what the user had typed when the box was filled; it counts as changed.
  void PutBack(const wxString& typed);
  [[nodiscard]] wxTextCtrl& Box() const noexcept { return *m_box; }

 private:
  void RefuseTooLong();

  wxTextCtrl* m_box = nullptr;
  std::size_t m_maxLength = 0;
  std::string m_stored;  ///< the text that was set last
  wxString m_filled;     ///< the box's content right after that
  wxString m_fitting;    ///< the last content that was not too long
};

/// A number that the user types or steps, and the text that shows it: one control.
class BoundNumber : public NumberField, public TextField {
 public:
  void Attach(wxSpinCtrl& box);

  [[nodiscard]] std::int32_t Value() const override;
  /// A number outside the control's range shows as the nearest one inside.
  void SetValue(std::int32_t value) override;

  [[nodiscard]] std::string Text() const override { return std::to_string(Value()); }
  /// Does nothing for a text that is no number.
  void SetText(std::string_view text) override;

  [[nodiscard]] bool IsChanged() const { return Value() != m_filled; }
  void Undo();
  void Accept() { m_filled = Value(); }
  [[nodiscard]] wxSpinCtrl& Box() const noexcept { return *m_box; }

 private:
  wxSpinCtrl* m_box = nullptr;
  std::int32_t m_filled = 0;  ///< the value right after it was set
};

/// A check box. While it is disabled it shows no check: the flag of a link that is no longer selected would be taken
/// for that of another link.
class BoundCheck : public CheckField {
 public:
  /// A box that is disabled while it has the focus gives it to `neighbour`, as a BoundButton does.
  void Attach(wxCheckBox& box, wxWindow* neighbour = nullptr) noexcept;

  void SetEnabled(bool enabled) override;
  [[nodiscard]] std::int32_t Value() const override;
  void SetValue(std::int32_t value) override;
  [[nodiscard]] wxCheckBox& Box() const noexcept { return *m_box; }

 private:
  wxCheckBox* m_box = nullptr;
  wxWindow* m_neighbour = nullptr;
};

class BoundButton : public EnabledControl {
 public:
  /// A button that is disabled while it has the focus gives it to `neighbour`: a disabled control keeps the focus, and
  /// the window would then ignore the keyboard.
  void Attach(wxButton& button, wxWindow& neighbour) noexcept;

  void SetEnabled(bool enabled) override;
  [[nodiscard]] wxButton& Button() const noexcept { return *m_button; }

 private:
  wxButton* m_button = nullptr;
  wxWindow* m_neighbour = nullptr;
};

}  // namespace quorvel
