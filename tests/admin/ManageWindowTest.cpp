// The administration window as its user sees it. The rules of its views are tested without a window.
#include <gmock/gmock.h>

#include <functional>
#include <string>

#include <wx/listbox.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "admin/window/SearchCombo.h"
#include "admin/window/frmManage.h"
#include "admin/window/frmNewContext.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/wx/FindControl.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {
namespace {

constexpr const char* kFirstName = "SELECT FirstName FROM ttwUser WHERE UserID = 'admin'";

class ManageWindowTest : public testing::Test {
 protected:
  /// Opens the window, acts in it and closes it.
  void Open(const std::function<void()>& act) {
    m_window.Load();
    ModalScript script;
    script.ExpectShown([&](wxDialog&) {
      act();
      m_window.Close();
      EXPECT_TRUE(WaitFor([this] { return !m_window.IsShown(); }));
    });
    m_window.RunModal();
  }
  template <typename Control>
  Control& The(const char* name) {
    return Find<Control>(m_window, name);
  }
  void Key(int key, int modifiers = 0) {
    wxUIActionSimulator().Char(key, modifiers);
    HandleEvents();
  }
  /// Types into a control that a click or key has given the focus.
  void Type(const char* name, const char* text) {
    The<wxWindow>(name).SetFocus();
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == &The<wxWindow>(name); })) << name;
    Key(WXK_HOME);
    wxUIActionSimulator().Text(text);
    HandleEvents();
  }
  bool Becomes(const std::string& query, const std::string& value) {
    return WaitFor([&] { return m_database.Ask(query) == value; });
  }

  TestDatabase m_database;
  PromptsGuard m_prompts;
  frmManage m_window;
};

TEST_F(ManageWindowTest, TextIsWrittenWhenTheUserLeavesItAndNotBefore) {
  Open([&] {
    Type("txtFirstName", "X");
    EXPECT_EQ(m_database.Ask(kFirstName), "Anna") << "not with each key";
    Key(WXK_ESCAPE);
    EXPECT_EQ(The<wxTextCtrl>("txtFirstName").GetValue(), "Anna");
    for (const int key : {WXK_PAGEDOWN, WXK_PAGEUP}) Key(key, wxMOD_CONTROL);
    Key('x');  // on the tab, and in no text
    Type("txtFirstName", "Y");
    Key(WXK_TAB);
    EXPECT_TRUE(Becomes(kFirstName, "YAnna"));
    Type("txtFirstName", "Z");
    Key('2', wxMOD_CONTROL);
    EXPECT_TRUE(Becomes(kFirstName, "ZYAnna")) << "another view is shown";
    m_database.Run("UPDATE ttwGroup SET Comments = 'changed by another administrator'");
    Key('1', wxMOD_CONTROL);
    Key(WXK_DOWN);  // the next user
    EXPECT_TRUE(WaitFor([&] { return The<wxTextCtrl>("txtFirstName").GetValue() != "ZYAnna"; }));
    Type("txtLastName", "Q");
  });
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM ttwUser WHERE LastName LIKE 'Q%' AND UserID <> 'admin'"), "1");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM ttwGroup WHERE Comments <> 'changed by another administrator'"), "0")
      << "filling the fields writes nothing";
}

TEST_F(ManageWindowTest, KeysAndADoubleClickLinkAndUnlink) {
  const std::string link =
      " FROM ttwRemarkRight r INNER JOIN ttwGroup g ON g.GroupKey = r.GroupKey INNER JOIN ttwRemarkType t"
      " ON t.RemarkTypeKey = r.RemarkTypeKey WHERE g.GroupID = 'Default' AND t.RemarkTypeID = 'Cust.Credit'";
  Open([&] {
    Key('2', wxMOD_CONTROL);
    Key('K', wxMOD_ALT);
    auto& list = The<wxListBox>("lstCurrent3");
    Key('O', wxMOD_ALT);
    wxUIActionSimulator().Text("cre");
    Key('A', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return list.GetStringSelection() == "Credit"; }));
    EXPECT_FALSE(The<wxWindow>("chkRight0").IsEnabled()) << "the link is not shown yet";
    Key('T', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return The<wxWindow>("chkRight0").IsEnabled(); }));
    Key('C', wxMOD_ALT);
    EXPECT_TRUE(Becomes("SELECT r.CanCreate - r.CanUpdate - r.CanRead - r.CanDelete" + link, "1"));
    wxCommandEvent doubleClick(wxEVT_LISTBOX_DCLICK, list.GetId());
    list.HandleWindowEvent(doubleClick);
    EXPECT_EQ(m_database.Ask("SELECT COUNT(*)" + link), "0");
    EXPECT_EQ(The<wxListBox>("lstRemaining3").GetStringSelection(), "Credit");

    Key('5', wxMOD_CONTROL);
    Key('K', wxMOD_ALT);
    for (const char* type : {"Credit", "Internal"}) {  // each the first of the list
      Key('O', wxMOD_ALT);
      Key(WXK_DOWN);
      Key(WXK_HOME);
      EXPECT_EQ(The<wxListBox>("lstRemaining7").GetStringSelection(), type);
      EXPECT_EQ(The<wxListBox>("lstCurrent7").GetSelection(), wxNOT_FOUND);
      Key('A', wxMOD_ALT);
      EXPECT_TRUE(WaitFor([&] { return The<wxListBox>("lstCurrent7").GetStringSelection() == type; }));
    }
  });
}

TEST_F(ManageWindowTest, RefusedTextKeepsTheWindowOpenOnceAndNoUserFromGoingOn) {
  m_database.Run("DROP PROCEDURE spTWCDeleteContext DELETE FROM ttwRightAssignment DELETE FROM ttwRight");
  m_prompts->answers = {PromptAnswer::Yes};
  m_prompts->texts = {"Order.Copy"};
  Open([&] {
    Key('3', wxMOD_CONTROL);
    The<wxTextCtrl>("txtCaption1").SetValue("of no right");
    Press(m_window, "cmdNew");
    EXPECT_EQ(The<SearchCombo>("cboID").GetValue(), "Order.Copy");
    Key('5', wxMOD_CONTROL);
    Press(m_window, "cmdDelete");
    The<wxSpinCtrl>("udRowHeight").SetValue(9);  // while the error has left the window busy
    Key('6', wxMOD_CONTROL);
    EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM ttwContext WHERE RowHeight = 9"), "1");
    m_prompts->shown.clear();
    The<wxTextCtrl>("txtEntity").SetValue("no number");
    m_window.Close();
    EXPECT_TRUE(m_window.IsShown());
    EXPECT_EQ(The<wxTextCtrl>("txtEntity").GetValue(), "501") << "as it is stored";
  });
  EXPECT_EQ(m_prompts->shown.size(), 1U);
}

TEST_F(ManageWindowTest, NewContextNeedsAnIDAndAnEntity) {
  Open([&] {
    Key('5', wxMOD_CONTROL);
    ModalScript script;
    script.ExpectWindow<frmNewContext>("Create New Context", [&](frmNewContext& dialog) {
      Press(dialog, "cmdCreate");
      EXPECT_EQ(m_prompts->shown.back().text, "Please enter new ID first. ");
      Find<wxTextCtrl>(dialog, "txtContextID").SetValue(" OrdMaint ");
      Press(dialog, "cmdCreate");
      EXPECT_EQ(m_prompts->shown.back().text, "Please choose an entity first.");
      Find<SearchCombo>(dialog, "cboEntityType").SetSelection(1);
      Press(dialog, "cmdCreate");
    });
    Press(m_window, "cmdNew");
    EXPECT_EQ(The<SearchCombo>("cboID").GetValue(), "OrdMaint");
  });
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM ttwContext WHERE ContextID = 'OrdMaint'"), "1");
}

}  // namespace
}  // namespace quorvel::test
