#pragma once

#include <string_view>

class wxCheckBox;
class wxFlexGridSizer;
class wxOwnerDrawnComboBox;
class wxSizerItem;
class wxSpinCtrl;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace quorvel {

/// Lays out the fields of a panel, a label and a control in each row. A caption marks its access key with &; without
/// the mark it is the control's name for assistive technology. The panel owns the controls.
class FieldSheet {
 public:
  explicit FieldSheet(wxWindow& panel);

  wxTextCtrl& AddLine(std::string_view name, std::string_view caption);
  /// A text that is only shown.
  wxTextCtrl& AddShownLine(std::string_view name, std::string_view caption);
  /// Several lines; they take the height that the other rows leave.
  wxTextCtrl& AddMemo(std::string_view name, std::string_view caption);
  wxSpinCtrl& AddNumber(std::string_view name, std::string_view caption, int last);
  wxOwnerDrawnComboBox& AddCombo(std::string_view name, std::string_view caption);
  wxCheckBox& AddCheck(std::string_view name, std::string_view caption);

  /// A combo box with a list that is quick with thousands of items, for a row that is laid out elsewhere.
  [[nodiscard]] static wxOwnerDrawnComboBox& MakeCombo(wxWindow& parent, std::string_view name,
                                                       std::string_view spokenName);

 private:
  enum class Width { Narrow, Full };
  wxSizerItem& AddLabel(std::string_view caption);
  void AddRow(wxWindow& control, std::string_view name, std::string_view caption, Width width);
  wxTextCtrl& AddText(std::string_view name, std::string_view caption, long style);

  wxWindow& m_panel;
  wxFlexGridSizer* m_rows;
};

}  // namespace quorvel
