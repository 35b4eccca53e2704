// An action that leaves a remark commits what was typed, then changes the list or the selection, then shows the result.
// RowChanged does nothing while the session itself moves the current line.

#include "remark_ui/EditSession.h"

#include <optional>
#include <utility>

#include <wx/choice.h>
#include <wx/gdicmn.h>
#include <wx/textctrl.h>

#include "data/modWaitCursor.h"
#include "grid/DataGrid.h"
#include "platform/CurrentPrompts.h"
#include "platform/RaisedFlag.h"
#include "platform/wx/SendKeys.h"
#include "remark_ui/CreatableTypes.h"
#include "remark_ui/EditControls.h"
#include "remark_ui/frmChooseType.h"
#include "runtime/RemarkContext.h"

namespace quorvel {

EditSession::EditSession(EditControls& controls, RemarkContext& context)
    : m_controls(controls), m_context(context.shared_from_this()), m_wrapper(ui::SendKeys), m_edited(context) {
  m_rows.SetContext(m_context);
}

// The grid must not ask for rows that no longer exist.
EditSession::~EditSession() { m_controls.gdxMemos->SetSource(nullptr); }

void EditSession::Start() {
  m_wrapper.SetGrid(m_controls.gdxMemos);
  const modWaitCursor::BusyPointer busy;
  {
    const RaisedFlag refetching(m_isRefetching);
    SetUpGrid();
    m_controls.gdxMemos->Refetch();
    // The first line of a group is its heading.
    if (m_rows.RowCount() > 0) m_controls.gdxMemos->SelectLine(m_context->GroupByType() ? 2 : 1);
  }
  ShowSelected();
}

void EditSession::SetUpGrid() {
  DataGrid& grid = *m_controls.gdxMemos;
  const bool isGrouped = m_context->GroupByType();
  grid.SetSource(&m_rows);
  grid.SetEmptyText(m_rows.EmptyText());
  grid.AllowRowSizing(m_context->AllowRowSizing());
  grid.ShowColumn(RemarkRows::kTypeColumn, !isGrouped);
  grid.GroupBy(isGrouped ? std::optional(SortKey{RemarkRows::kTypeColumn, true}) : std::nullopt);
  grid.SortBy({{RemarkRows::kDateColumn, false}});
  grid.SetRowHeight(GridRowHeight(m_context->RowHeight()));
}

void EditSession::New() {
  ShowSaved(CommitPending());
  if (CreatableTypes(*m_context).empty()) return ExplainNew();
  std::int32_t position = -1;
  frmChooseType chooser;
  auto type = chooser.ChooseType(*m_context, position);
  if (!type) return;
  m_edited.ShowNew(std::move(type), position);
  {
    const RaisedFlag refetching(m_isRefetching);
    m_controls.gdxMemos->SelectNone();  // the buttons act on the new remark, not on a row
  }
  m_controls.Show(m_edited.Display());
  m_controls.frame.txtRemark->SetFocus();
}

// New is always enabled, and a button that does nothing looks broken.
void EditSession::ExplainNew() {
  CurrentPrompts().ShowMessage(
      "You may not create remarks of any type here.  Your administrator can give you the right.", "Can Not Create",
      PromptButtons::Ok, PromptIcon::Exclamation);
}

void EditSession::Save() {
  const auto outcome = m_edited.Save(m_controls.frame.Input());
  if (outcome == EditedRemark::Outcome::Nothing) m_controls.frame.txtRemark->SetFocus();
  ShowSaved(outcome);
}

void EditSession::Delete() {
  FollowList();
  if (!m_edited.Display().canDelete) return;
  DataGrid& grid = *m_controls.gdxMemos;
  const std::int32_t line = grid.CurrentLine();
  const std::int32_t lineCount = grid.Content().Rows().LineCount();
  // A new remark that was added only to be removed would leave a change to be asked about.
  if (m_edited.IsListed()) CommitPending();
  m_edited.Remove();
  Refetch(nullptr);
  // The other rows keep their order. The heading of a group goes with its last row.
  const std::int32_t lost = lineCount - grid.Content().Rows().LineCount();
  if (line > 0) {
    const RaisedFlag refetching(m_isRefetching);
    grid.SelectNone(line + 1 - lost);
  }
  ShowSelected();
  grid.SetFocus();
}

void EditSession::Close() {
  modWaitCursor::ResetWait();
  CommitPending();
  m_context->Save(false);
}

// The commit may sort the rows again, so the line that the user went to is found by its remark.
void EditSession::RowChanged() {
  if (m_isRefetching) return;
  const auto remark = CurrentRemark();
  const std::int32_t line = m_controls.gdxMemos->CurrentLine();
  if (CommitPending() == EditedRemark::Outcome::Changed || !m_rows.IsUpToDate()) Refetch(remark, line);
  ShowSelected();
}

void EditSession::TypeChosen() {
  m_edited.TypeChosen(m_controls.frame.Input());
  m_controls.Enable(m_edited.Display());
}

void EditSession::TextEdited() {
  m_edited.TextEdited();
  m_controls.Enable(m_edited.Display());
}

void EditSession::FollowList() {
  if (m_rows.IsUpToDate()) return;
  const bool isPending = m_edited.IsPending(m_controls.frame.Input());
  DataGrid& grid = *m_controls.gdxMemos;
  const wxPoint view = grid.GetViewStart();
  Refetch(CurrentRemark(), grid.CurrentLine());
  grid.Scroll(view);  // the user may be reading far from the selected row
  if (!isPending) ShowSelected();
}

EditedRemark::Outcome EditSession::CommitPending() { return m_edited.CommitPending(m_controls.frame.Input()); }

/// Reads the rows again and selects the row of a remark; without a remark the heading on a line; else nothing.
void EditSession::Refetch(const std::shared_ptr<Remark>& remark, std::int32_t line) {
  const modWaitCursor::BusyPointer busy;
  const RaisedFlag refetching(m_isRefetching);
  DataGrid& grid = *m_controls.gdxMemos;
  m_rows.Read();
  grid.Refetch();
  if (const std::int32_t rowIndex = m_rows.RowOf(remark); rowIndex > 0) {
    grid.SelectRowIndex(rowIndex);
  } else if (!remark && grid.Content().Rows().GroupAt(line) != nullptr) {
    grid.SelectLine(line);
  } else {
    grid.SelectNone();
  }
}

/// Shows the rows and the remark after a save; after a refused one the controls keep what the user typed.
void EditSession::ShowSaved(EditedRemark::Outcome outcome) {
  if (outcome == EditedRemark::Outcome::Nothing) return;
  if (outcome == EditedRemark::Outcome::Changed) Refetch(m_edited.Shown());
  ShowSelected();
}

void EditSession::ShowSelected() {
  m_edited.Show(CurrentRemark());
  m_controls.Show(m_edited.Display());
}

std::shared_ptr<Remark> EditSession::CurrentRemark() const {
  const DataGrid& grid = *m_controls.gdxMemos;
  return m_rows.RemarkAt(grid.RowIndex(grid.CurrentLine()));
}

}  // namespace quorvel
