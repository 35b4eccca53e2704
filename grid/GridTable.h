#pragma once

#include <vector>

#include <wx/grid.h>

#include "grid/GridState.h"

namespace quorvel {

/// A grid's lines and visible columns as the toolkit's grid asks for them, both counted from 0. Keeps no texts.
class GridTable : public wxGridTableBase {
 public:
  /// `state` outlives the table; `renderer` draws every cell.
  GridTable(const GridState& state, wxGridCellRenderer* renderer);

  int GetNumberRows() override;
  int GetNumberCols() override;
  wxString GetValue(int row, int column) override;
  bool IsEmptyCell(int /*row*/, int /*column*/) override { return false; }
  void SetValue(int /*row*/, int /*column*/, const wxString& /*value*/) override {}
  wxString GetColLabelValue(int column) override;
  wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind kind) override;

  // To be called after `state` has changed: they bring the grid's own counts up to date.
  void LinesChanged();
  void ColumnsChanged();

 private:
  void MakeAttributes();
  void Resize(int before, int after, wxGridTableRequest remove, wxGridTableRequest append);

  const GridState& m_state;
  wxGridCellAttrPtr m_cell;
  std::vector<wxGridCellAttrPtr> m_heading;  ///< by position: the first one's cell covers the others
};

}  // namespace quorvel
