#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/GridColumn.h"

class wxWindow;

namespace quorvel {

class BoundGrid;

/// Makes a label, a grid and the line that explains its current row, lays them out in `panel`, which owns them, and
/// attaches `face`. `caption` marks the access key with &.
void MakeGridPanel(wxWindow& panel, const std::string& name, std::string_view caption, std::vector<GridColumn> columns,
                   BoundGrid& face);

}  // namespace quorvel
