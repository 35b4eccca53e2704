#pragma once

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "admin/Administration.h"
#include "tests/support/EngineUnderTest.h"
#include "tests/support/Matchers.h"
#include "tests/support/MemoryControls.h"
#include "tests/support/Rows.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/TestSettings.h"

namespace quorvel::test {

/// The administration over controls in memory and over the sample data, on the embedded engine or through ODBC on the
/// stand-in server. admin.Load() opens it.
class AdminSession : public ManageView, public NewItemDialog {
 public:
  explicit AdminSession(EngineKind kind) : controls(MakeControls()), admin(*this, controls) {
    if (kind != EngineKind::StandIn) return;
    server.emplace(database.DatabaseFile());
    UseSettings(*server);
  }

  // The actions of the user.
  void Go(const std::string& view, const std::string& id, const std::string& caption = "General") {
    admin.ClickView(view);
    Pick(id);
    Tab(caption);
  }
  void Pick(const std::string& id) {
    Choose(controls.cboID, id);
    admin.ClickID();
  }
  void Tab(const std::string& caption) {
    tab = caption;
    admin.ClickTab();
  }
  void Select(std::size_t lists, const std::string& text) {
    Choose(controls.lstCurrent.at(lists), text);
    admin.SelectCurrent(lists);
  }
  void Add(std::size_t lists, const std::string& text) {
    Choose(controls.lstRemaining.at(lists), text);
    admin.SelectRemaining(lists);
    admin.ClickAdd(lists);
  }
  void Remove(std::size_t lists, const std::string& text) {
    Select(lists, text);
    admin.ClickRemove(lists);
  }
  void Check(std::size_t i, bool on) {
    controls.chkRight.at(i)->SetValue(on ? 1 : 0);
    admin.ClickField("chkRight" + std::to_string(i));
  }
  bool Type(TextField* box, const std::string& text, const std::string& field) {
    box->SetText(text);
    return admin.ChangeText(field);
  }
  /// Presses New and answers the question for the ID. A new context or remark type is the entity Order's.
  void New(const std::string& id) {
    prompts->texts.emplace_back(id);
    admin.ClickNew();
  }
  /// Presses Delete and answers the questions.
  void Delete(const std::deque<PromptAnswer>& answers = {}) {
    prompts->answers = answers;
    admin.ClickDelete();
    EXPECT_TRUE(prompts->answers.empty()) << "no question for " << ShownID();
  }
  static void Choose(ItemList* list, const std::string& text) {
    const auto texts = Texts(list);
    const auto found = std::ranges::find(texts, text);
    EXPECT_NE(found, texts.end()) << text;
    list->SetListIndex(static_cast<std::int32_t>(found - texts.begin()));
  }

  [[nodiscard]] static std::vector<std::string> Texts(const ItemList* list) {
    std::vector<std::string> texts(static_cast<std::size_t>(list->Count()));
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = list->Text(static_cast<std::int32_t>(i));
    return texts;
  }
  [[nodiscard]] std::vector<std::string> Current(std::size_t i) const { return Texts(controls.lstCurrent.at(i)); }
  [[nodiscard]] std::vector<std::string> Remaining(std::size_t i) const { return Texts(controls.lstRemaining.at(i)); }
  [[nodiscard]] std::string ShownID() const { return controls.cboID->CurrentText(); }
  [[nodiscard]] static bool IsEnabled(const EnabledControl* control) {
    return dynamic_cast<const MemoryValue&>(*control).enabled;
  }
  /// Two columns of each row of a grid and its explanation, with bars between them.
  [[nodiscard]] std::vector<std::string> Rows(std::size_t i, std::size_t first, std::size_t second) const {
    const auto& grid = dynamic_cast<const MemoryRows&>(*controls.grdForm.at(i));
    std::vector<std::string> texts;
    for (std::int32_t row = 1; grid.rows && row <= grid.rows->RecordCount(); ++row) {
      texts.push_back(Shown(grid.rows->At(row, first)) + "|" + Shown(grid.rows->At(row, second)));
      if (grid.explanation) texts.back() += "|" + grid.explanation(row);
    }
    return texts;
  }
  /// The title, a bar and the text of each message and question since the last call.
  [[nodiscard]] std::vector<std::string> Prompted() {
    std::vector<std::string> texts;
    for (const auto& shown : std::exchange(prompts->shown, {})) texts.push_back(shown.title + "|" + shown.text);
    return texts;
  }

  // ManageView and NewItemDialog
  void SetTitle(std::string_view text) override { title = text; }
  void FreezeDrawing() override {}
  void ThawDrawing() override {}
  void SelectButton(std::string_view /*view*/) override {}
  void ShowPanels(std::string_view /*view*/, std::string_view /*caption*/) override { tab = "General"; }
  void SelectTab(std::string_view key) override { tab = key.substr(key.find(':') + 1); }
  [[nodiscard]] std::string SelectedTab() const override { return tab; }
  [[nodiscard]] NewItem AskForContext() override { return AskFor("Context"); }
  [[nodiscard]] NewItem AskForRemarkType() override { return AskFor("Remark Type"); }
  [[nodiscard]] NewItem AskFor(const std::string& kind) const {
    return {prompts->AskText(kind + " ID", "Create New " + kind).value_or(""), 2};
  }

  std::string title, tab;
  PromptsGuard prompts;
  TestDatabase database;
  std::optional<StandInServer> server;

 private:
  ManageControls MakeControls() {
    ManageControls c{.frmNewContext = this};
    m_memory.Make(c.cboID, c.txtCaption, c.txtComment, c.lstCurrent, c.lstRemaining, c.cmdAdd, c.cmdRemove, c.chkRight,
                  c.cmdUp, c.cmdDown, c.txtFirstName, c.txtLastName, c.chkUserActive, c.cboBranch, c.chkGroupByType,
                  c.chkAllowRowSizing, c.udRowHeight, c.txtRowHeight, c.cboEditBehavior, c.txtProcedure, c.txtEntity,
                  c.grdForm);
    for (std::int32_t i = 0; i < 3; ++i) c.cboEditBehavior->Add(std::to_string(i), i);
    return c;
  }

  MemoryControls m_memory;

 public:
  ManageControls controls;
  Administration admin;
};

/// A tab with a pair of lists and the check boxes of its links. The index in kPairs is that of the lists.
struct Pair {
  std::string view, id, tab;
  std::string item;              ///< can be added
  std::size_t firstFlag, flags;  ///< in chkRight
};
inline const Pair kPairs[] = {{"Users", "jsmith", "Groups", "Sales", 0, 0},
                              {"Groups", "Sales", "Users", "guest", 0, 0},
                              {"Groups", "Sales", "Rights", "Order.Delete", 0, 0},
                              {"Groups", "Sales", "Remarks", "General", 0, 4},
                              {"Rights", "Order.Delete", "Groups", "Sales", 0, 0},
                              {"Remarks", "Ord.Ship", "Groups", "Default", 4, 4},
                              {"Remarks", "Cust.Credit", "Contexts", "CustInq", 8, 1},
                              {"Contexts", "CustInq", "Remarks", "Internal", 9, 1}};

/// A session on each engine.
class AdminTest : public testing::TestWithParam<EngineKind>, protected AdminSession {
 protected:
  AdminTest() : AdminSession(GetParam()) { admin.Load(); }
  void Run(std::string_view batch) const { database.Run(batch); }
  [[nodiscard]] std::string Ask(std::string_view query) const { return database.Ask(query); }
};

}  // namespace quorvel::test
