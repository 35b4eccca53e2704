#pragma once

#include <cstdint>
#include <vector>

#include "grid/RowSource.h"
#include "grid/SortKey.h"

namespace quorvel {

/// The rows of a grid that have equal values in the column by which they are grouped.
struct RowGroup {
  Value value;             ///< as the source's first row of the group has it
  std::int32_t count = 0;  ///< rows
  std::int32_t first = 0;  ///< 0-based, where its rows begin in the order of all rows
  std::int32_t line = 0;   ///< of its heading; GridRows sets it
  bool open = true;
};

/// Reorders `order`, which holds every row index of `source` once, so that it holds group after group; within a group
/// the order stays. Returns the groups, sorted by their values in the direction of `key`.
[[nodiscard]] std::vector<RowGroup> GroupRows(const RowSource& source, SortKey key, std::vector<std::int32_t>& order);

}  // namespace quorvel
