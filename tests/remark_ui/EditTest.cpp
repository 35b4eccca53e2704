#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <wx/choice.h>
#include <wx/listbox.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "data/modUserName.h"
#include "data/modWaitCursor.h"
#include "grid/DataGrid.h"
#include "remark_ui/frmChooseType.h"
#include "remark_ui/frmEdit.h"
#include "tests/remark_ui/Controls.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* kTitle = "Acme Tools [C1044] Customer Remarks [(embedded)]";

/// An open editor as its user sees it.
class Screen {
 public:
  explicit Screen(frmEdit& window) : m_window(window) {}

  [[nodiscard]] DataGrid& Grid() const { return Find<DataGrid>(m_window, "gdxMemos"); }
  [[nodiscard]] wxTextCtrl& TextBox() const { return Find<wxTextCtrl>(m_window, "txtRemark"); }
  [[nodiscard]] wxChoice& Types() const { return Find<wxChoice>(m_window, "cboRemarkType"); }
  [[nodiscard]] std::string Text() const { return ui::FromWx(TextBox().GetValue()); }
  [[nodiscard]] std::string Frame() const { return ui::FromWx(Find<wxStaticBox>(m_window, "fmViewRemark").GetLabel()); }
  [[nodiscard]] bool CanPress(const char* name) const { return Find<wxButton>(m_window, name).IsEnabled(); }
  [[nodiscard]] std::int32_t Position() const { return Grid().RowIndex(Grid().CurrentRow()); }

  void Go(std::int32_t position) const { Grid().SelectRowIndex(position); }
  /// In place of what stands there.
  void Type(const std::string& text) const {
    ASSERT_TRUE(TextBox().IsEditable());
    TextBox().SetValue(ui::ToWx(text));
  }
  void Choose(const char* caption) const {
    ASSERT_TRUE(Types().IsEnabled() && Types().SetStringSelection(caption)) << caption;
    wxCommandEvent chosen(wxEVT_CHOICE, Types().GetId());
    chosen.SetEventObject(&Types());
    Types().ProcessWindowEvent(chosen);
  }
  void Click(const char* name) const { Press(m_window, name); }
  [[nodiscard]] bool Closes() const {
    return WaitFor([this] { return !m_window.IsShown(); });
  }
  [[nodiscard]] bool HasFocus(const wxWindow& control) const {
    return WaitFor([&control] { return control.IsDescendant(wxWindow::FindFocus()); });
  }
  [[nodiscard]] frmEdit& Window() const { return m_window; }

 private:
  frmEdit& m_window;
};

/// Acme Tools' remarks: Collections at 1 and 2, Credit at 3, then General.
class EditTest : public testing::Test {
 protected:
  using Act = std::function<void(const Screen&)>;

  void View(const ContextHolder& context, const Act& act, const char* title = kTitle) {
    ModalScript script;
    script.ExpectWindow<frmEdit>(title, [&](frmEdit& window) { act(Screen(window)); });
    m_editor.View(*context);
  }
  [[nodiscard]] static std::int32_t FirstOf(const ContextHolder& context, const char* type) {
    std::int32_t position = 1;
    while (RemarkAt(context, position).TypeID() != type) ++position;
    return position;
  }

  TestDatabase m_database;
  PromptsGuard m_prompts;
  const std::string m_login = modUserName::GetUserName();
  frmEdit m_editor;
};

TEST_F(EditTest, AnAuthorEditsAnOwnRemarkWithoutUpdateRightAndMovesOn) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  const std::int32_t own = FirstOf(context, "Cust.General");
  Remark& remark = RemarkAt(context, own);
  remark.SetUserID(m_login);
  m_prompts->answers = {PromptAnswer::Yes};
  View(context, [&](const Screen& screen) {
    screen.Go(own + 1);
    EXPECT_EQ(screen.Frame(), "View Remark");
    EXPECT_FALSE(screen.TextBox().IsEditable());
    EXPECT_FALSE(screen.Types().IsEnabled() || screen.CanPress("cmdSave") || screen.CanPress("cmdDelete"));

    screen.Go(own);
    EXPECT_EQ(screen.Frame(), "Edit Remark");
    EXPECT_TRUE(screen.CanPress("cmdDelete"));
    screen.Type("Receiving now closes at 4 pm.");
    screen.Go(own + 1);
    EXPECT_EQ(screen.Position(), own + 1) << "the row that the user went to stays current";
    EXPECT_EQ(screen.Text(), RemarkAt(context, own + 1).MemoText());
    EXPECT_EQ(remark.RemarkType()->CanUpdate(), 0);
    EXPECT_EQ(remark.RemarkType()->CanDelete(), 0);
    EXPECT_TRUE(remark.Dirty());
    screen.Click("cmdClose");
  });
  EXPECT_EQ(m_database.Ask("SELECT MemoText FROM tciMemo WHERE MemoKey = " + std::to_string(remark.MemoKey())),
            "Receiving now closes at 4 pm.");
}

TEST_F(EditTest, WhatTheDatabaseHoldsAfterClosingByBehaviorAndAnswer) {
  struct Case {
    EditBehavior behavior;
    std::vector<PromptAnswer> answers;
    bool isSaved;
  };
  for (const Case& each :
       {Case{EditBehavior::PromptForSave, {PromptAnswer::No}, false}, Case{EditBehavior::NoAutoSave, {}, false},
        Case{EditBehavior::PromptForSave, {PromptAnswer::Yes}, true}, Case{EditBehavior::AutoSaveOnClose, {}, true}}) {
    const TestDatabase database;
    const ContextHolder context("CustMaint", "C1044", "admin");
    context->SetEditBehavior(each.behavior);
    m_prompts->answers.assign(each.answers.begin(), each.answers.end());
    m_prompts->shown.clear();
    const std::int32_t changed = RemarkAt(context, 1).MemoKey();
    const std::int32_t deleted = RemarkAt(context, 2).MemoKey();
    View(context, [](const Screen& screen) {
      screen.Go(2);
      screen.Click("cmdDelete");
      screen.Go(1);
      screen.Choose("Credit");
      screen.Type("one\ntwo \xF0\x9F\x94\xA7 \xD7\xA9");
      ModalScript chooser;
      chooser.ExpectWindow("Choose Remark Type", [](wxDialog& dialog) { Press(dialog, "cmdOK"); });
      screen.Click("cmdNew");
      EXPECT_EQ(ui::FromWx(screen.Types().GetStringSelection()), "Collections");
      screen.Choose("General");
      screen.Type("brand new");
      screen.Click("cmdClose");
    });
    EXPECT_EQ(m_prompts->shown.size(), each.answers.size());
    const auto found = [&](const std::string& condition) {
      return database.Ask("SELECT COUNT(*) FROM tciMemo WHERE " + condition) == "1";
    };
    EXPECT_EQ(
        found("MemoType = 'Cust.Credit' AND MemoText = 'one\r\ntwo ' + N'\xF0\x9F\x94\xA7 \xD7\xA9' AND MemoKey = " +
              std::to_string(changed)),
        each.isSaved);
    EXPECT_EQ(found("MemoKey = " + std::to_string(deleted)), !each.isSaved);
    EXPECT_EQ(found("MemoType = 'Cust.General' AND MemoText = 'brand new' AND UserID = '" + m_login + "'"),
              each.isSaved);
  }
}

TEST_F(EditTest, GroupingDecidesTheTypeColumnAndTheFirstRow) {
  const auto captions = [](const Screen& screen) {
    std::vector<std::string> shown;
    shown.reserve(static_cast<std::size_t>(screen.Grid().GetNumberCols()));
    for (int column = 0; column < screen.Grid().GetNumberCols(); ++column) {
      shown.push_back(ui::FromWx(screen.Grid().GetColLabelValue(column)));
    }
    return shown;
  };
  const ContextHolder grouped("CustMaint", "C1044", "jsmith");
  const ContextHolder plain("CustInq", "C1044", "jsmith");
  const ContextHolder nothing("CustMaint", "C1001", "guest");
  const auto isGrouped = [&](const Screen& screen) {
    EXPECT_THAT(captions(screen), ElementsAre("Date", "UserID", "Remark"));
    EXPECT_EQ(screen.Grid().CurrentRow(), 2);
    EXPECT_EQ(screen.Position(), 1);
    EXPECT_TRUE(screen.Grid().CanDragRowSize(0));
    screen.Grid().SelectRow(1);
    EXPECT_EQ(screen.Frame(), "View/Edit Remark");
    EXPECT_TRUE(screen.Text().empty());
    screen.Grid().SetGroupOpen(1, false);
    screen.Grid().SortByCaption(0);
    screen.Click("cmdClose");
  };
  View(grouped, isGrouped);
  View(grouped, isGrouped);  // with nothing left of the time before
  View(plain, [&](const Screen& screen) {
    EXPECT_THAT(captions(screen), ElementsAre("Date", "Type", "UserID", "Remark"));
    EXPECT_EQ(screen.Grid().CurrentRow(), 1);
    EXPECT_FALSE(screen.Grid().CanDragRowSize(0));
    EXPECT_THAT(screen.Text(), StartsWith("Dana promised")) << "the newest first";
    screen.Click("cmdDelete");
    EXPECT_EQ(screen.Position(), 0) << "another Delete would take a remark that nobody chose";
    EXPECT_EQ(screen.Frame(), "View/Edit Remark");
    EXPECT_FALSE(screen.CanPress("cmdDelete"));
    screen.Click("cmdClose");
  });
  View(
      nothing,
      [](const Screen& screen) {
        EXPECT_EQ(screen.Grid().CurrentRow(), 0);
        EXPECT_EQ(screen.Frame(), "View/Edit Remark");
        EXPECT_FALSE(screen.TextBox().IsEditable());
        screen.Click("cmdClose");
      },
      "Bayside Marine Supply [C1001] Customer Remarks [(embedded)]");
}

TEST_F(EditTest, SaveKeepsTheRemarkAtHandAndShowsItInItsPlace) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&](const Screen& screen) {
    const std::int32_t general = FirstOf(context, "Cust.General") + 1;
    screen.Go(general);
    screen.Type("changed");
    screen.Click("cmdSave");
    EXPECT_EQ(screen.Position(), general);
    EXPECT_EQ(screen.Text(), "changed");
    EXPECT_TRUE(screen.CanPress("cmdSave")) << "the remark was shown anew";

    const std::int32_t count = context->MemoCount();
    ModalScript chooser;
    chooser.ExpectWindow<frmChooseType>("Choose Remark Type", [](frmChooseType& dialog) { dialog.Close(); });
    screen.Click("cmdNew");
    EXPECT_EQ(screen.Text(), "changed");
    chooser.ExpectWindow<frmChooseType>("Choose Remark Type", [](frmChooseType& dialog) { Press(dialog, "cmdOK"); });
    screen.Click("cmdNew");
    EXPECT_TRUE(screen.HasFocus(screen.TextBox()));
    EXPECT_EQ(screen.Frame(), "Edit Remark");
    EXPECT_EQ(context->MemoCount(), count);
    screen.Type("new");
    screen.Click("cmdSave");
    EXPECT_EQ(screen.Position(), count + 1);
    EXPECT_EQ(screen.Text(), "new");
    screen.Click("cmdDelete");
    EXPECT_EQ(context->MemoCount(), count);
    EXPECT_EQ(screen.Position(), 0);
    EXPECT_TRUE(screen.HasFocus(screen.Grid()));
    screen.Click("cmdClose");
  });
}

TEST_F(EditTest, TheKeyboardIsEnough) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&](const Screen& screen) {
    wxUIActionSimulator keyboard;
    EXPECT_TRUE(screen.HasFocus(screen.Grid()));
    keyboard.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return screen.Position() == 2; }));
    keyboard.Char(WXK_RETURN);
    keyboard.Char(WXK_TAB);  // to the list of types, which the toolkit does not tell
    for (const char* next : {"txtRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose", "gdxMemos"}) {
      keyboard.Char(WXK_TAB);
      EXPECT_TRUE(screen.HasFocus(Find<wxWindow>(screen.Window(), next))) << next;
    }
    EXPECT_EQ(screen.Position(), 2);

    screen.TextBox().SetFocus();
    EXPECT_TRUE(screen.HasFocus(screen.TextBox()));
    keyboard.Char('x');
    keyboard.Char(WXK_RETURN);
    keyboard.Char(WXK_RETURN, wxMOD_CONTROL);
    const auto isSaved = [&](const std::string& start) {
      return WaitFor([&] { return RemarkAt(context, 2).MemoText().substr(0, start.size()) == start; });
    };
    EXPECT_TRUE(isSaved("x\r\nInvoice"));
    EXPECT_EQ(screen.TextBox().GetInsertionPoint(), 2) << "the user goes on typing";
    keyboard.Char('y');
    keyboard.Char('S', wxMOD_ALT);
    EXPECT_TRUE(isSaved("x\r\nyInvoice"));
    keyboard.Char('z');
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(screen.Closes());
  });
  EXPECT_THAT(RemarkAt(context, 2).MemoText(), StartsWith("x\r\nyzInvoice"));
}

TEST_F(EditTest, AnErrorOfTheDatabaseWhileClosingLosesNothingTyped) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::AutoSaveOnClose);
  m_database.Run("DROP PROCEDURE spTWCqvUpdateRemark");
  const auto typeAndClose = [&] {
    View(context, [](const Screen& screen) {
      screen.Type("not lost");
      screen.Click("cmdClose");
      EXPECT_TRUE(screen.Closes());
    });
  };
  EXPECT_NE(Caught(typeAndClose).Number(), 0);
  EXPECT_TRUE(RemarkAt(context, 1).Dirty());
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [](const Screen& screen) {
    EXPECT_EQ(screen.Text(), "not lost");
    screen.Click("cmdClose");
  });
}

TEST_F(EditTest, AnyOtherErrorEndsTheWindowWithWhatWasTypedInTheList) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  modWaitCursor::BeginWait();
  const Error error = Caught([&] {
    View(context, [](const Screen& screen) {
      screen.Type("kept");
      screen.Grid().Failed(std::make_exception_ptr(Error(7, "grid", "cannot be read")));
      EXPECT_TRUE(screen.Closes());
    });
  });
  EXPECT_THAT(error, IsError(7, "grid", "cannot be read"));
  EXPECT_EQ(RemarkAt(context, 1).MemoText(), "kept");
  EXPECT_EQ(m_prompts->pointers.back(), PointerShape::Default);
}

TEST_F(EditTest, ASecondCallIsRefusedAndDisturbsNothing) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const ContextHolder other("CustInq", "C1001", "jsmith");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&](const Screen& screen) {
    screen.Type("half a sent");
    EXPECT_THAT(Caught([&] { screen.Window().View(*other); }), HasNumber(400));
    EXPECT_EQ(screen.Window().GetTitle(), kTitle);
    EXPECT_EQ(screen.Text(), "half a sent");
    screen.Click("cmdClose");
  });
  EXPECT_EQ(RemarkAt(context, 1).MemoText(), "half a sent");
}

TEST_F(EditTest, TextsThatATextBoxCannotHoldStayAsTheyAre) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  const std::string odd("\r\n a\0b \xFF\r c\n\xF0\x9F\x94\xA7\n", 17);
  RemarkAt(context, 1).SetMemoText(odd);
  View(context, [&](const Screen& screen) {
    screen.Go(2);
    screen.Go(1);
    screen.Click("cmdSave");
    screen.Click("cmdClose");
  });
  EXPECT_EQ(RemarkAt(context, 1).MemoText(), odd);
  EXPECT_FALSE(context->RemarkList()->Dirty());
}

TEST_F(EditTest, NothingIsCutOrCoveredDownToTheSmallestSize) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  View(context, [](const Screen& screen) {
    frmEdit& window = screen.Window();
    for (const wxSize& asked : {wxSize(1100, 900), wxSize(10, 10)}) {
      window.SetClientSize(asked);
      EXPECT_TRUE(WaitFor([&] { return asked.x == 10 || window.GetClientSize() == asked; }));
      window.Layout();
      std::vector<wxRect> taken;
      for (const char* name : {"gdxMemos", "fmViewRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose"}) {
        const auto& control = Find<wxWindow>(window, name);
        EXPECT_TRUE(wxRect(window.GetClientSize()).Contains(control.GetRect())) << name;
        for (const wxRect& other : taken) EXPECT_FALSE(control.GetRect().Intersects(other)) << name;
        taken.push_back(control.GetRect());
      }
      for (const char* name : {"cmdNew", "cmdSave", "cmdDelete", "cmdClose", "Label2", "cboRemarkType"}) {
        const auto& control = Find<wxWindow>(window, name);
        EXPECT_GE(control.GetSize().x, control.GetBestSize().x) << name;
        EXPECT_GE(control.GetSize().y, control.GetBestSize().y) << name;
      }
      EXPECT_GE(screen.TextBox().GetClientSize().y, 3 * screen.TextBox().GetCharHeight());
    }
    screen.Click("cmdClose");
  });
}

}  // namespace
}  // namespace quorvel::test
