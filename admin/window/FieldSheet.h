#pragma once

#include <string_view>

class wxCheckBox;
class wxFlexGridSizer;
class wxSizerItem;
class wxSpinCtrl;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace quorvel {

class SearchCombo;

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
  SearchCombo& AddCombo(std::string_view name, std::string_view caption);
  wxCheckBox& AddCheck(std::string_view name, std::string_view caption);

 private:
  enum class Width { Narrow, Full };
  wxSizerItem& AddLabel(std::string_view caption);
  void AddRow(wxWindow& control, std::string_view name, std::string_view caption, Width width);
  wxTextCtrl& AddText(std::string_view name, std::string_view caption, long style);

  wxWindow& m_panel;
  wxFlexGridSizer* m_rows;
};

}  // namespace quorvel
