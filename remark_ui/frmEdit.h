#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "grid/GridEXWrapper.h"
#include "platform/wx/ModalDialog.h"
#include "remark_ui/EditLayout.h"
#include "remark_ui/EditedRemark.h"
#include "remark_ui/RemarkFrame.h"
#include "remark_ui/RemarkRows.h"

class wxButton;
class wxKeyEvent;

namespace quorvel {

class RemarkContext;
class DataGrid;

/// Where the user reads all remarks of an owner and, as far as the rights go, makes, changes and deletes them. Changes
/// are made in the context's list; closing calls the context's Save(false). One of a kind per thread, used again.
class frmEdit : public ui::ModalDialog {
 public:
  frmEdit();
  ~frmEdit() override;
  frmEdit(const frmEdit&) = delete;
  frmEdit& operator=(const frmEdit&) = delete;

  /// Shows the window on `context` until it is closed. Errors pass through with the window closed, those of that Save
  /// too: what was typed is then in the list, still dirty, and another View shows it.
  void View(RemarkContext& context);

  /// Places the controls.
  bool Layout() override;

 private:
  void CreateControls();
  void BindHandlers();
  void BindGrid();
  void MeasureControls();

  void HoldContext(RemarkContext& context);
  void ReleaseContext();
  void Load();
  void Refresh();
  void SetUpGrid();
  void RefreshRows(std::int32_t rowIndex, std::int32_t line);
  void ShowSelected();
  void Display();
  void EnableControls(const RemarkDisplay& display);
  void CommitPending();

  void cmdNew_Click();
  void cmdSave_Click();
  void cmdDelete_Click();
  void cmdClose_Click();
  void gdxMemos_RowChange();
  void cboRemarkType_Click();
  void KeyPressed(wxKeyEvent& event);

  // In the order in which Tab passes them.
  DataGrid* gdxMemos = nullptr;
  std::optional<RemarkFrame> m_frame;
  wxButton* cmdNew = nullptr;
  wxButton* cmdSave = nullptr;
  wxButton* cmdDelete = nullptr;
  wxButton* cmdClose = nullptr;

  EditSizes m_sizes;
  std::unique_ptr<GridEXWrapper> m_wrapper;
  std::shared_ptr<RemarkContext> m_context;  ///< while the window is open
  RemarkRows m_rows;
  EditedRemark m_edited;
  bool m_loading = false;  ///< the window itself moves in the grid
};

}  // namespace quorvel
