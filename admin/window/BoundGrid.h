#pragma once

#include <memory>

#include "data/Controls.h"

class wxStaticText;

namespace quorvel {

class DataGrid;

/// The face RowsView over a grid and the line below it, which explains the current row.
class BoundGrid : public RowsView {
 public:
  void Attach(DataGrid& grid, wxStaticText& explanation);

  /// The rows must have a field for each column of the grid.
  void Show(std::shared_ptr<ado::Recordset> rows) override;
  void Explain(Explanation explanation) override;
  [[nodiscard]] DataGrid& Grid() const noexcept { return *m_grid; }

 private:
  void ShowExplanation();

  DataGrid* m_grid = nullptr;
  wxStaticText* m_explanation = nullptr;
};

}  // namespace quorvel
