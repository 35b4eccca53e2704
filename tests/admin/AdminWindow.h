#pragma once

#include <array>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "admin/Administration.h"
#include "tests/support/MemoryControls.h"

namespace quorvel::test {

/// The administration over controls in memory, with the user's actions as functions.
class AdminWindow : public ManageView, public NewItemDialog {
 public:
  AdminWindow();

  // The actions of the user.
  void View(const std::string& view) { admin.ClickView(view); }
  void Tab(const std::string& caption);
  void Pick(const std::string& id);
  void SelectCurrent(std::size_t i, const std::string& text);
  void SelectRemaining(std::size_t i, const std::string& text);
  void Add(std::size_t i, const std::string& text);
  void Remove(std::size_t i, const std::string& text);
  void Check(std::size_t i, bool on);
  bool Type(MemoryText& box, const std::string& text, const std::string& field);

  // ManageView
  void SetTitle(std::string_view text) override { title = text; }
  void FreezeDrawing() override { ++frozen; }
  void ThawDrawing() override { --frozen; }
  void SelectButton(std::string_view view) override { button = view; }
  void ShowPanels(std::string_view view, std::string_view caption) override;
  void SelectTab(std::string_view key) override { tab = key.substr(key.find(':') + 1); }
  [[nodiscard]] std::string SelectedTab() const override { return tab; }

  // NewItemDialog
  [[nodiscard]] NewItem AskForContext() override { return NextNewItem("context"); }
  [[nodiscard]] NewItem AskForRemarkType() override { return NextNewItem("remark type"); }

  MemoryChoice cboID;
  std::array<MemoryText, 9> txtCaption;
  std::array<MemoryText, 5> txtComment;
  std::array<MemoryChoice, 8> lstCurrent;
  std::array<MemoryChoice, 8> lstRemaining;
  std::array<MemoryButton, 8> cmdAdd;
  std::array<MemoryButton, 8> cmdRemove;
  std::array<MemoryCheck, 10> chkRight;
  MemoryButton cmdUp;
  MemoryButton cmdDown;
  MemoryText txtFirstName;
  MemoryText txtLastName;
  MemoryCheck chkUserActive;
  MemoryChoice cboBranch;
  MemoryCheck chkGroupByType;
  MemoryCheck chkAllowRowSizing;
  MemoryNumber udRowHeight;
  MemoryText txtRowHeight;
  MemoryChoice cboEditBehavior;
  MemoryText txtProcedure;
  MemoryText txtEntity;
  std::array<MemoryRows, 5> grdForm;

  std::deque<NewItem> newItems;  ///< the answers of frmNewContext, one for each time it is shown
  std::string title;
  std::string button;
  std::string caption;
  std::string tab;
  int frozen = 0;

  Administration admin;

 private:
  [[nodiscard]] ManageControls Controls();
  [[nodiscard]] NewItem NextNewItem(const std::string& kind);
};

}  // namespace quorvel::test
