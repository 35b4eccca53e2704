#include "remark_ui/frmEdit.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <wx/button.h>
#include <wx/gdicmn.h>
#include <wx/sizer.h>

#include "data/modWaitCursor.h"
#include "grid/DataGrid.h"
#include "platform/AtScopeEnd.h"
#include "platform/RaisedFlag.h"
#include "platform/wx/MakeButton.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/SendKeys.h"
#include "platform/wx/Text.h"
#include "remark_ui/OwnerTitle.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

constexpr ui::TwipSize kFirstSize{10800, 7800};

}  // namespace

frmEdit::frmEdit() : ModalDialog("View Customer Comments") {
  CreateControls();
  BindHandlers();
  MeasureControls();
  SetClientSize(Scale().ClientSizeFor(kFirstSize));
  wxSize size = GetSize();
  size.DecTo(wxGetClientDisplayRect().GetSize());
  SetSize(size);
}

frmEdit::~frmEdit() = default;

void frmEdit::CreateControls() {
  gdxMemos = new DataGrid(this, RemarkRows::Columns(), RemarkRows::ColumnOrder());
  gdxMemos->SetName("gdxMemos");
  gdxMemos->SetSpokenName("Remarks");
  m_frame.emplace(*this, Scale());
  SetSizer(m_frame->Sizer());
  cmdNew = ui::MakeButton(*this, "cmdNew", "&New");
  cmdSave = ui::MakeButton(*this, "cmdSave", "&Save");
  cmdDelete = ui::MakeButton(*this, "cmdDelete", "&Delete");
  cmdClose = ui::MakeButton(*this, "cmdClose", "&Close");
  SetEscapeId(cmdClose->GetId());
}

void frmEdit::MeasureControls() {
  for (const wxButton* each : {cmdNew, cmdSave, cmdDelete, cmdClose}) {
    const wxSize best = each->GetBestSize();
    m_sizes.button.width = std::max(m_sizes.button.width, Scale().ToTwips(best.GetWidth()));
    m_sizes.button.height = std::max(m_sizes.button.height, Scale().ToTwips(best.GetHeight()));
  }
  m_sizes.frameHeight = Scale().ToTwips(GetSizer()->GetMinSize().GetHeight());
  SetSmallestInside(Scale().ClientSizeFor(SmallestEditor(m_sizes)));
}

bool frmEdit::Layout() {
  // Windows come here while their parts are still being made.
  if (cmdClose == nullptr || IsIconized()) return false;
  const EditLayout layout = LayOutEditor(Scale().WindowSizeOf(GetClientSize()), m_sizes);
  const auto place = [this](wxWindow& control, const ui::TwipRect& rectangle) {
    control.SetSize(Scale().ToPixels(rectangle));
  };
  place(*gdxMemos, layout.grid);
  const wxRect frame = Scale().ToPixels(layout.frame);
  GetSizer()->SetDimension(frame.GetPosition(), frame.GetSize());
  place(*cmdNew, layout.newButton);
  place(*cmdSave, layout.saveButton);
  place(*cmdDelete, layout.deleteButton);
  place(*cmdClose, layout.closeButton);
  return true;
}

void frmEdit::View(RemarkContext& context) {
  if (m_context) return RunModal();  // refuses, and nothing of the remarks on the screen changes
  const AtScopeEnd release([this] { ReleaseContext(); });
  HoldContext(context);
  Guard([this] { Load(); });
  try {
    RunModal();
  } catch (...) {
    // Whatever went wrong, what was typed is not to be lost with it.
    m_edited.CommitPending(m_frame->Input());
    modWaitCursor::ResetWait();
    throw;
  }
}

void frmEdit::HoldContext(RemarkContext& context) {
  m_context = context.shared_from_this();
  m_rows.SetContext(m_context);
  m_edited.Open(context);
}

/// Afterwards the controls show nothing of the context.
void frmEdit::ReleaseContext() {
  m_wrapper.reset();
  m_rows.SetContext(nullptr);
  m_edited.Close();
  m_context.reset();
  Guard([this] {
    const RaisedFlag loading(m_loading);
    gdxMemos->Refetch();
    Display();
  });
}

void frmEdit::Load() {
  m_wrapper = std::make_unique<GridEXWrapper>(ui::SendKeys);
  m_wrapper->SetGrid(gdxMemos);
  Refresh();
  CentreOnScreen();
  gdxMemos->SetFocus();
}

void frmEdit::Refresh() {
  const modWaitCursor::BusyPointer busy;
  SetTitle(ui::ToWx(OwnerTitle(*m_context)));
  {
    const RaisedFlag loading(m_loading);
    SetUpGrid();
    gdxMemos->Refetch();
    // The first line of a group is its heading.
    if (m_rows.RowCount() > 0) gdxMemos->SelectLine(m_context->GroupByType() ? 2 : 1);
  }
  ShowSelected();
}

void frmEdit::SetUpGrid() {
  const bool isGrouped = m_context->GroupByType();
  gdxMemos->SetSource(&m_rows);
  gdxMemos->AllowRowSizing(m_context->AllowRowSizing());
  gdxMemos->ShowColumn(RemarkRows::kTypeColumn, !isGrouped);
  gdxMemos->GroupBy(isGrouped ? std::optional(SortKey{RemarkRows::kTypeColumn, true}) : std::nullopt);
  gdxMemos->SortBy({{RemarkRows::kDateColumn, false}});
  gdxMemos->SetRowHeight(GridRowHeight(m_context->RowHeight()));
}

void frmEdit::RefreshRows(std::int32_t rowIndex, std::int32_t line) {
  const modWaitCursor::BusyPointer busy;
  const RaisedFlag loading(m_loading);
  gdxMemos->Refetch();
  if (rowIndex > 0) {
    gdxMemos->SelectRowIndex(rowIndex);
  } else if (line > 0) {
    gdxMemos->SelectLine(line);
  } else {
    gdxMemos->SelectNone();
  }
}

void frmEdit::ShowSelected() {
  m_edited.Show(gdxMemos->RowIndex(gdxMemos->CurrentLine()));
  Display();
}

}  // namespace quorvel
