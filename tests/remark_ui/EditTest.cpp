// The editor as its user sees it. Its rules are tested without a window in EditRulesTest.
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
  [[nodiscard]] std::int32_t Position() const { return Grid().RowIndex(Grid().CurrentLine()); }

  void Go(std::int32_t position) const { Grid().SelectRowIndex(position); }
  /// Replaces the text in the box.
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

/// The position of the first General remark of Acme Tools; Collections and Credit come before.
constexpr std::int32_t kGeneral = 4;

class EditTest : public testing::Test {
 protected:
  using Act = std::function<void(const Screen&)>;

  void View(const ContextHolder& context, const Act& act) {
    ModalScript script;
    script.ExpectWindow<frmEdit>(kTitle, [&](frmEdit& window) { act(Screen(window)); });
    m_editor.View(*context);
  }

  TestDatabase m_database;
  PromptsGuard m_prompts;
  const std::string m_login = modUserName::GetUserName();
  frmEdit m_editor;
};

TEST_F(EditTest, AuthorEditsAnOwnRemarkAndMovesOn) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  const ContextHolder other("CustInq", "C1001", "jsmith");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  Remark& remark = RemarkAt(context, kGeneral);
  remark.SetUserID(m_login);
  View(context, [&](const Screen& screen) {
    screen.Go(kGeneral + 1);
    EXPECT_EQ(screen.Frame(), "View Remark");
    EXPECT_FALSE(screen.TextBox().IsEditable());
    EXPECT_FALSE(screen.Types().IsEnabled() || screen.CanPress("cmdSave") || screen.CanPress("cmdDelete"));

    screen.Go(kGeneral);
    EXPECT_EQ(screen.Frame(), "Edit Remark");
    EXPECT_TRUE(screen.CanPress("cmdDelete"));
    screen.Type("Receiving now closes at 4 pm.");
    EXPECT_THAT(Caught([&] { screen.Window().View(*other); }), HasNumber(400));
    EXPECT_EQ(screen.Window().GetTitle(), kTitle);
    screen.Go(kGeneral + 1);
    EXPECT_EQ(screen.Position(), kGeneral + 1) << "saving the previous row moves no row";
    EXPECT_EQ(screen.Text(), RemarkAt(context, kGeneral + 1).MemoText());
    screen.Click("cmdClose");
  });
  EXPECT_EQ(remark.MemoText(), "Receiving now closes at 4 pm.");
  EXPECT_TRUE(remark.Dirty());
}

TEST_F(EditTest, ClosingWritesAllChangesOrNone) {
  for (const bool isSaved : {false, true}) {
    const TestDatabase database;
    const ContextHolder context("CustMaint", "C1044", "admin");
    m_prompts->answers = {isSaved ? PromptAnswer::Yes : PromptAnswer::No};
    const std::string changed = std::to_string(RemarkAt(context, 1).MemoKey());
    const std::string deleted = std::to_string(RemarkAt(context, 2).MemoKey());
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
    EXPECT_TRUE(m_prompts->answers.empty()) << "closing asks once";
    const auto isFound = [&](const std::string& condition) {
      return database.Ask("SELECT COUNT(*) FROM tciMemo WHERE " + condition) == "1";
    };
    EXPECT_EQ(isFound("MemoText = 'one\r\ntwo ' + N'\xF0\x9F\x94\xA7 \xD7\xA9' AND MemoType = 'Cust.Credit'"
                      " AND MemoKey = " +
                      changed),
              isSaved);
    EXPECT_EQ(isFound("MemoKey = " + deleted), !isSaved);
    EXPECT_EQ(isFound("MemoText = 'brand new' AND MemoType = 'Cust.General' AND UserID = '" + m_login + "'"), isSaved);
  }
}

TEST_F(EditTest, GroupingDecidesTheTypeColumnAndTheFirstRow) {
  const auto captions = [](const Screen& screen) {
    wxString shown;
    for (int i = 0; i < screen.Grid().GetNumberCols(); ++i) shown += screen.Grid().GetColLabelValue(i) + ' ';
    return shown;
  };
  const auto isGrouped = [&](const Screen& screen) {
    EXPECT_EQ(captions(screen), "Date UserID Remark ");
    EXPECT_EQ(screen.Grid().CurrentLine(), 2);
    EXPECT_EQ(screen.Position(), 1);
    EXPECT_TRUE(screen.Grid().CanDragRowSize(0));
    screen.Grid().SelectLine(1);
    EXPECT_EQ(screen.Frame(), "View/Edit Remark");
    EXPECT_TRUE(screen.Text().empty());
    screen.Grid().SetGroupOpen(1, false);
    screen.Grid().SortByCaption(0);
    screen.Click("cmdClose");
  };
  const ContextHolder grouped("CustMaint", "C1044", "jsmith");
  View(grouped, isGrouped);
  View(grouped, isGrouped);  // the closed group and the sort order of the first View are gone
  View(ContextHolder("CustInq", "C1044", "jsmith"), [&](const Screen& screen) {
    EXPECT_EQ(captions(screen), "Date Type UserID Remark ");
    EXPECT_EQ(screen.Grid().CurrentLine(), 1);
    EXPECT_FALSE(screen.Grid().CanDragRowSize(0));
    EXPECT_THAT(screen.Text(), StartsWith("Dana promised")) << "the newest first";
    screen.Click("cmdClose");
  });
}

TEST_F(EditTest, SaveKeepsTheRemarkSelectedAndDeleteSelectsNone) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  const std::string odd("\r\n a\0b \xFF\r c\n\xF0\x9F\x94\xA7\n", 17);
  RemarkAt(context, 1).SetMemoText(odd);
  View(context, [&](const Screen& screen) {
    screen.Click("cmdSave");
    EXPECT_EQ(RemarkAt(context, 1).MemoText(), odd) << "the text box cannot hold it, and nothing was typed";
    EXPECT_FALSE(context->RemarkList()->Dirty());

    screen.Go(kGeneral);
    screen.Type("changed");
    screen.Click("cmdSave");
    EXPECT_EQ(screen.Position(), kGeneral);
    EXPECT_EQ(screen.Text(), "changed");
    EXPECT_TRUE(screen.CanPress("cmdSave")) << "the remark is shown again";

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
    EXPECT_EQ(screen.Position(), 0) << "a second Delete must not remove a remark that the user did not choose";
    EXPECT_FALSE(screen.CanPress("cmdDelete"));
    EXPECT_TRUE(screen.HasFocus(screen.Grid()));
    screen.Click("cmdClose");
  });
}

TEST_F(EditTest, KeyboardReachesEverything) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&](const Screen& screen) {
    wxUIActionSimulator keyboard;
    EXPECT_TRUE(screen.HasFocus(screen.Grid()));
    keyboard.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return screen.Position() == 2; }));
    keyboard.Char(WXK_RETURN);
    keyboard.Char(WXK_TAB);  // to the list of types, whose focus the toolkit does not report
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
    EXPECT_EQ(screen.TextBox().GetInsertionPoint(), 2) << "the user continues typing";
    keyboard.Char('y');
    keyboard.Char('S', wxMOD_ALT);
    EXPECT_TRUE(isSaved("x\r\nyInvoice"));
    keyboard.Char('z');
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(screen.Closes());
  });
  EXPECT_THAT(RemarkAt(context, 2).MemoText(), StartsWith("x\r\nyzInvoice"));
}

TEST_F(EditTest, ErrorEndsTheWindowAndLosesNothingTyped) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto typeAndFail = [&](const char* text, const Act& fail) {
    return Caught([&] {
      View(context, [&](const Screen& screen) {
        screen.Type(text);
        fail(screen);
        EXPECT_TRUE(screen.Closes());
      });
    });
  };
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  modWaitCursor::BeginWait();
  const Error ofGrid = typeAndFail("not lost", [](const Screen& screen) {
    screen.Grid().Failed(std::make_exception_ptr(Error(7, "grid", "cannot be read")));
  });
  EXPECT_THAT(ofGrid, IsError(7, "grid", "cannot be read"));
  EXPECT_EQ(m_prompts->pointers.back(), PointerShape::Default);
  EXPECT_EQ(RemarkAt(context, 1).MemoText(), "not lost");

  context->SetEditBehavior(EditBehavior::AutoSaveOnClose);
  m_database.Run("DROP PROCEDURE spTWCqvUpdateRemark");
  EXPECT_NE(typeAndFail("nor this", [](const Screen& screen) { screen.Click("cmdClose"); }).Number(), 0);
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [](const Screen& screen) {
    EXPECT_EQ(screen.Text(), "nor this");
    screen.Click("cmdClose");
  });
}

TEST_F(EditTest, ControlsFitDownToTheSmallestSize) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  View(context, [](const Screen& screen) {
    frmEdit& window = screen.Window();
    for (const wxSize& asked : {wxSize(1100, 900), wxSize(10, 10)}) {
      window.SetClientSize(asked);
      EXPECT_TRUE(WaitFor([&] { return asked.x == 10 || window.GetClientSize() == asked; }));
      window.Layout();
      ExpectApart(window, {"gdxMemos", "fmViewRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose"});
      ExpectUncut(window, {"cmdNew", "cmdSave", "cmdDelete", "cmdClose", "Label2", "cboRemarkType"});
      EXPECT_GE(screen.TextBox().GetClientSize().y, 3 * screen.TextBox().GetCharHeight());
    }
    screen.Click("cmdClose");
  });
}

}  // namespace
}  // namespace quorvel::test
