// Which operation of which manager an action of the user calls. The order of the steps matters: a manager reads the
// lists as they are before an entry moves, and the busy flag keeps the window's own changes from being written back.

#include "admin/Administration.h"

#include <fmt/format.h>

#include "data/modControls.h"
#include "data/modDatabase.h"
#include "data/modRecordsets.h"
#include "data/modWaitCursor.h"
#include "platform/AtScopeEnd.h"
#include "platform/CurrentPrompts.h"
#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel {
namespace {

std::string Title() {
  DBConnect& settings = modDatabase::Settings();
  const Version version = ComponentVersion();
  return fmt::format("Manage Security and Remarks (v{}.{}.{}) on {}.{}", version.major, version.minor, version.revision,
                     settings.Server(), settings.Database());
}

bool IsSelected(const ItemList& list) { return list.ListIndex() >= 0; }

void Deselect(ItemList& list) {
  if (IsSelected(list)) list.SetListIndex(kNoItem);
}

}  // namespace

Administration::Administration(ManageView& view, const ManageControls& controls) : m_view(view), m_controls(controls) {}

void Administration::Load() {
  m_busy = true;
  modDatabase::EnsureConnection();
  m_view.SetTitle(Title());
  modRecordsets::InitGlobalRecordsets();
  m_managers.Bind(m_controls);
  ClickView("Users");  // a user who cannot be shown must not keep the window from opening
  m_busy = false;
}

// An error leaves the busy flag and the wait of an unfinished write as they are. The pointer must not stay an
// hourglass, because the user goes on working in this window.
bool Administration::Trapped(const Action& action) {
  try {
    action();
    return true;
  } catch (const Error& error) {
    m_hasFailed = true;
    modWaitCursor::ResetWait();
    CurrentPrompts().ShowMessage(error.Description(), "Error in " + error.Source(), PromptButtons::Ok,
                                 PromptIcon::Exclamation);
    return false;
  }
}

// After a failed operation the recordsets may differ from the database. When they cannot be loaded, cboID may name
// another record than the manager's current one, which Delete would delete.
void Administration::ReadAgainAfterFailure() {
  if (!m_hasFailed) return;
  try {
    modRecordsets::InitGlobalRecordsets();
  } catch (...) {
    m_controls.cboID->Clear();
    throw;
  }
  m_hasFailed = false;
}

void Administration::ClickView(std::string_view view) {
  Trapped([&] { ShowView(view); });
}

void Administration::ShowView(std::string_view view) {
  m_currentView = view;
  m_view.FreezeDrawing();
  const AtScopeEnd thaw([this] { m_view.ThawDrawing(); });
  m_view.SelectButton(view);
  m_view.ShowPanels(view, fmt::format("Manage {}", view));
  m_busy = true;
  if (IMgr* manager = CurrentManager()) {
    ReadAgainAfterFailure();
    manager->Refresh();
    manager->selectTab(m_view.SelectedTab());
    DisableAllMoves();
  }
  m_busy = false;
}

void Administration::ClickTab() {
  Trapped([&] { ShowSelected([] {}); });
}

void Administration::ClickID() {
  Trapped([&] { ShowSelected([&] { CurrentManager()->SelectKey(SelectedKey(*m_controls.cboID)); }); });
}

void Administration::ShowSelected(const Action& show) {
  if (CurrentManager() == nullptr) return;
  m_busy = true;
  const modWaitCursor::BusyPointer busy;
  ReadAgainAfterFailure();
  // The records could not be listed before.
  if (m_controls.cboID->Count() == 0) CurrentManager()->Refresh();
  show();
  CurrentManager()->selectTab(m_view.SelectedTab());
  DisableAllMoves();
  m_busy = false;
}

void Administration::ClickNew() {
  Trapped([&] {
    if (CurrentManager() == nullptr) return;
    m_busy = true;
    CurrentManager()->Create();
    m_view.SelectTab(m_currentView + ":General");
    m_busy = false;
  });
}

void Administration::ClickDelete() {
  Trapped([&] {
    if (CurrentManager() == nullptr) return;
    RequireRecord();
    m_busy = true;
    CurrentManager()->Delete();
    // Lists of the deleted record would let the user change the links of the record that is current now.
    CurrentManager()->selectTab(m_view.SelectedTab());
    DisableAllMoves();
    m_busy = false;
  });
}

void Administration::ClickUp() { UpdateWhileBusy("Up"); }
void Administration::ClickDown() { UpdateWhileBusy("Down"); }

void Administration::UpdateWhileBusy(std::string_view field) {
  Trapped([&] {
    if (CurrentManager() == nullptr) return;
    m_busy = true;
    CurrentManager()->Update(field);
    m_busy = false;
  });
}

void Administration::ClickAdd(std::size_t i) {
  Move(i, *m_controls.lstRemaining.at(i), *m_controls.lstCurrent.at(i), &IMgr::AddChild, true);
}

void Administration::ClickRemove(std::size_t i) {
  Move(i, *m_controls.lstCurrent.at(i), *m_controls.lstRemaining.at(i), &IMgr::RemoveChild, false);
}

void Administration::Move(std::size_t i, ItemList& from, ItemList& to, ChildOperation operation, bool isAdd) {
  Trapped([&] {
    const std::int32_t index = from.ListIndex();
    if (index < 0 || CurrentManager() == nullptr) return;
    const modWaitCursor::BusyPointer busy;
    const std::int32_t key = from.Datum(index);
    const std::string text = from.Text(index);
    OrShowTabAgain([&] { (CurrentManager()->*operation)(key); });
    from.Remove(index);
    m_busy = true;
    to.Add(text, key);
    modControls::SelectByKey(to, key, false);
    m_busy = false;
    EnableMoves(i, !isAdd, isAdd);
  });
}

// Another administrator has linked the same records meanwhile, or removed the link or one of the records: the lists are
// out of date, and the tab is shown again as after a click on it.
void Administration::OrShowTabAgain(const Action& operation) {
  try {
    operation();
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::DbIntegrity || error.Number() == ErrorNumber::Component) {
      m_busy = true;
      CurrentManager()->selectTab(m_view.SelectedTab());
      DisableAllMoves();
      m_busy = false;
    }
    throw;
  }
}

void Administration::SelectCurrent(std::size_t i) {
  if (m_busy || !IsSelected(*m_controls.lstCurrent.at(i)) || CurrentManager() == nullptr) return;
  Trapped([&] {
    const std::int32_t key = SelectedKey(*m_controls.lstCurrent.at(i));
    m_busy = true;
    Deselect(*m_controls.lstRemaining.at(i));
    OrShowTabAgain([&] { CurrentManager()->ShowRight(key); });
    m_busy = false;
    EnableMoves(i, false, true);
  });
}

void Administration::SelectRemaining(std::size_t i) {
  if (m_busy || !IsSelected(*m_controls.lstRemaining.at(i)) || CurrentManager() == nullptr) return;
  Trapped([&] {
    m_busy = true;
    Deselect(*m_controls.lstCurrent.at(i));
    m_busy = false;
    EnableMoves(i, true, false);
    CurrentManager()->InitControls();
  });
}

void Administration::LeaveCurrent(std::size_t i) {
  if (!IsSelected(*m_controls.lstCurrent.at(i))) m_controls.cmdRemove.at(i)->SetEnabled(false);
}

void Administration::LeaveRemaining(std::size_t i) {
  if (!IsSelected(*m_controls.lstRemaining.at(i))) m_controls.cmdAdd.at(i)->SetEnabled(false);
}

bool Administration::ChangeText(std::string_view field) {
  return Trapped([&] {
    if (CurrentManager() == nullptr) return;
    RequireRecord();
    OrShowTabAgain([&] { CurrentManager()->Update(field); });
  });
}

void Administration::ClickField(std::string_view field) {
  if (m_busy) return;
  ChangeText(field);
}

void Administration::ChangeRowHeight() {
  m_controls.txtRowHeight->SetText(std::to_string(m_controls.udRowHeight->Value()));
  ClickField("RowHeight");
}

void Administration::RequireRecord() const {
  if (IsSelected(*m_controls.cboID)) return;
  throw Error(ErrorNumber::Component, "frmManage",
              "There is no record to change or to delete. Press New to create one.");
}

void Administration::EnableMoves(std::size_t i, bool add, bool remove) {
  m_controls.cmdAdd.at(i)->SetEnabled(add);
  m_controls.cmdRemove.at(i)->SetEnabled(remove);
}

void Administration::DisableAllMoves() {
  for (std::size_t i = 0; i < m_controls.cmdAdd.size(); ++i) EnableMoves(i, false, false);
}

}  // namespace quorvel
