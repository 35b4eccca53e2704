#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "admin/ManageControls.h"
#include "admin/ManageView.h"
#include "admin/Managers.h"

namespace quorvel {

/// The administration window without a window: which operation of which manager an action of the user calls, and what
/// it enables. The window forwards every event to one operation here.
///
/// An error of an operation is shown in a message box and ends the operation; only Load throws. While the busy flag is
/// set, the window's own changes of its controls are no user's actions. An error leaves it set until the next operation
/// that clears it. After an error the next view, tab or record is shown from recordsets that are loaded again.
class Administration {
 public:
  /// View and controls must outlive the object.
  Administration(ManageView& view, const ManageControls& controls);

  /// Opens the connection, loads the recordsets and gives the managers their controls. The errors of these steps go to
  /// the caller: without a connection there is nothing to show. Then shows the view "Users", as ClickView does.
  void Load();

  /// bbViews: another view. A name that is no view's shows no manager.
  void ClickView(std::string_view view);
  /// tabPanels: the selected tab was clicked.
  void ClickTab();
  /// cboID: the user picked an entry.
  void ClickID();

  void ClickNew();
  void ClickDelete();
  void ClickUp();
  void ClickDown();

  /// cmdAdd(i), or a double click in lstRemaining(i): moves the selected entry to lstCurrent(i) and links it.
  void ClickAdd(std::size_t i);
  /// cmdRemove(i), or a double click in lstCurrent(i): the mirror of ClickAdd.
  void ClickRemove(std::size_t i);
  /// The selection of a list changed.
  void SelectCurrent(std::size_t i);
  void SelectRemaining(std::size_t i);
  /// The focus left a list: without a selection its button is disabled.
  void LeaveCurrent(std::size_t i);
  void LeaveRemaining(std::size_t i);

  /// The user has left a text box that he changed. False when its value was not written.
  bool ChangeText(std::string_view field);
  /// A check box or a combo box other than cboID was clicked.
  void ClickField(std::string_view field);
  /// udRowHeight changed.
  void ChangeRowHeight();

  [[nodiscard]] const std::string& CurrentView() const noexcept { return m_currentView; }
  [[nodiscard]] bool IsBusy() const noexcept { return m_busy; }

 private:
  using Action = std::function<void()>;
  using ChildOperation = void (IMgr::*)(std::int32_t key);

  [[nodiscard]] IMgr* CurrentManager() { return m_managers.Find(m_currentView); }
  bool Trapped(const Action& action);
  void ShowView(std::string_view view);
  void ShowSelected(const Action& show);
  void ReadAgainAfterFailure();
  void RequireRecord() const;
  void EnableMoves(std::size_t i, bool add, bool remove);
  void DisableAllMoves();
  void Move(std::size_t i, ItemList& from, ItemList& to, ChildOperation operation, bool isAdd);
  void OrShowTabAgain(const Action& operation);
  void UpdateWhileBusy(std::string_view field);

  ManageView& m_view;
  ManageControls m_controls;
  Managers m_managers;
  std::string m_currentView;
  bool m_busy = false;
  bool m_hasFailed = false;
};

}  // namespace quorvel
