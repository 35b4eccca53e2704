#pragma once

#include <cstdint>
#include <string>

#include "grid/CellFormat.h"

namespace quorvel {

/// A column of a grid as it is designed. A grid numbers its columns from 1 in the order in which it is given them.
struct GridColumn {
  std::string key;  ///< the field of a bound recordset
  std::string caption;
  std::int32_t width = 0;  ///< device-independent pixels; the visible columns share the window in proportion to it
  bool visible = true;
  CellFormat format = CellFormat::General;
};

}  // namespace quorvel
