#include "tests/admin/AdminWindow.h"

#include <gtest/gtest.h>

namespace quorvel::test {

AdminWindow::AdminWindow() : admin(*this, Controls()) {
  cboEditBehavior.items = {{"AutoSave", 0}, {"NoAutoSave", 1}, {"PromptSave", 2}};
}

ManageControls AdminWindow::Controls() {
  ManageControls c;
  c.cboID = &cboID;
  for (const std::size_t i : {0, 1, 2, 3, 4, 7, 8}) c.txtCaption.at(i) = &txtCaption.at(i);
  for (std::size_t i = 0; i < txtComment.size(); ++i) c.txtComment.at(i) = &txtComment.at(i);
  for (std::size_t i = 0; i < lstCurrent.size(); ++i) {
    c.lstCurrent.at(i) = &lstCurrent.at(i);
    c.lstRemaining.at(i) = &lstRemaining.at(i);
    c.cmdAdd.at(i) = &cmdAdd.at(i);
    c.cmdRemove.at(i) = &cmdRemove.at(i);
  }
  for (std::size_t i = 0; i < chkRight.size(); ++i) c.chkRight.at(i) = &chkRight.at(i);
  for (std::size_t i = 0; i < grdForm.size(); ++i) c.grdForm.at(i) = &grdForm.at(i);
  c.cmdUp[1] = &cmdUp;
  c.cmdDown[1] = &cmdDown;
  c.txtFirstName = &txtFirstName;
  c.txtLastName = &txtLastName;
  c.chkUserActive = &chkUserActive;
  c.cboBranch = &cboBranch;
  c.chkGroupByType = &chkGroupByType;
  c.chkAllowRowSizing = &chkAllowRowSizing;
  c.udRowHeight = &udRowHeight;
  c.txtRowHeight = &txtRowHeight;
  c.cboEditBehavior = &cboEditBehavior;
  c.txtProcedure = &txtProcedure;
  c.txtEntity = &txtEntity;
  c.frmNewContext = this;
  return c;
}

void AdminWindow::Tab(const std::string& name) {
  tab = name;
  admin.ClickTab();
}

void AdminWindow::Pick(const std::string& id) {
  EXPECT_TRUE(cboID.Pick(id)) << id;
  admin.ClickID();
}

void AdminWindow::SelectCurrent(std::size_t i, const std::string& text) {
  EXPECT_TRUE(lstCurrent.at(i).Pick(text)) << text;
  admin.SelectCurrent(i);
}

void AdminWindow::SelectRemaining(std::size_t i, const std::string& text) {
  EXPECT_TRUE(lstRemaining.at(i).Pick(text)) << text;
  admin.SelectRemaining(i);
}

void AdminWindow::Add(std::size_t i, const std::string& text) {
  SelectRemaining(i, text);
  admin.ClickAdd(i);
}

void AdminWindow::Remove(std::size_t i, const std::string& text) {
  SelectCurrent(i, text);
  admin.ClickRemove(i);
}

void AdminWindow::Check(std::size_t i, bool on) {
  chkRight.at(i).value = on ? 1 : 0;
  admin.ClickField("chkRight" + std::to_string(i));
}

bool AdminWindow::Type(MemoryText& box, const std::string& text, const std::string& field) {
  box.text = text;
  return admin.ChangeText(field);
}

void AdminWindow::ShowPanels(std::string_view /*view*/, std::string_view text) {
  caption = text;
  tab = "General";
}

NewItem AdminWindow::NextNewItem(const std::string& kind) {
  if (newItems.empty()) {
    ADD_FAILURE() << "No answer for a new " << kind;
    return {};
  }
  const NewItem item = newItems.front();
  newItems.pop_front();
  return item;
}

}  // namespace quorvel::test
