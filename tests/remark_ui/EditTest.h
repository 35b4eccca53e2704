#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include <wx/choice.h>
#include <wx/listbox.h>

#include "data/modUserName.h"
#include "grid/DataGrid.h"
#include "remark_ui/frmChooseType.h"
#include "remark_ui/frmEdit.h"
#include "tests/remark_ui/FormTest.h"

namespace quorvel::test {

/// The position of the first General remark of Acme Tools; Collections and Credit come before.
constexpr std::int32_t kGeneral = 4;

/// The editor as its user sees it.
class EditTest : public FormTest<frmEdit> {
 protected:
  DataGrid& Grid() { return The<DataGrid>("gdxMemos"); }
  wxTextCtrl& TextBox() { return The<wxTextCtrl>("txtRemark"); }
  wxChoice& Types() { return The<wxChoice>("cboRemarkType"); }
  std::string ChosenType() { return ui::FromWx(Types().GetStringSelection()); }
  std::string Text() { return FormTest::Text("txtRemark"); }
  std::string Frame() { return Caption("fmViewRemark"); }
  bool CanPress(const char* name) { return The<wxButton>(name).IsEnabled(); }
  std::int32_t Position() { return Grid().RowIndex(Grid().CurrentLine()); }
  static bool HasFocus(const wxWindow& control) {
    return WaitFor([&control] { return control.IsDescendant(wxWindow::FindFocus()); });
  }

  /// Shows remarks of Acme Tools, acts on the window and presses Close.
  void ViewAndClose(const ContextHolder& context, const std::function<void()>& act) {
    View(context, [&] {
      act();
      Click("cmdClose");
    });
  }
  /// Presses New and acts on the window that asks for the type, which `choose` must close.
  void ClickNew(const std::function<void(frmChooseType&)>& choose) {
    ModalScript chooser;
    chooser.ExpectWindow<frmChooseType>("Choose Remark Type", choose);
    Click("cmdNew");
  }
  /// Begins a new remark of a type.
  void ClickNew(const char* type) {
    ClickNew([type](frmChooseType& dialog) {
      Find<wxListBox>(dialog, "lstRemarkType").SetStringSelection(type);
      Press(dialog, "cmdOK");
    });
    EXPECT_EQ(ChosenType(), type);
  }
  void Go(std::int32_t position) { Grid().SelectRowIndex(position); }
  /// Replaces the text in the box.
  void Type(const std::string& text) {
    ASSERT_TRUE(TextBox().IsEditable());
    TextBox().SetValue(ui::ToWx(text));
  }
  void Choose(const char* caption) {
    ASSERT_TRUE(Types().IsEnabled() && Types().SetStringSelection(caption)) << caption;
    wxCommandEvent chosen(wxEVT_CHOICE, Types().GetId());
    chosen.SetEventObject(&Types());
    Types().ProcessWindowEvent(chosen);
  }

  PromptsGuard m_prompts;
  const std::string m_login = modUserName::GetUserName();
};

}  // namespace quorvel::test
