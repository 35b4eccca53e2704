#pragma once

#include <cstdint>
#include <vector>

#include "grid/GridRows.h"
#include "platform/Value.h"

namespace quorvel {

/// What rows are compared by while they are sorted: one column of a source, read once. Of long texts only the beginning
/// is kept, so that sorting a million long remarks does not hold them all; where beginnings are equal the source is
/// asked.
class SortColumn {
 public:
  /// `source` outlives the object.
  SortColumn(const RowSource& source, SortKey key, std::int32_t rowCount);

  /// Less than, equal or greater than 0, in the key's direction. Row indexes are 1-based.
  [[nodiscard]] int Compare(std::int32_t left, std::int32_t right) const;

 private:
  [[nodiscard]] bool ReadNumbers(std::int32_t rowCount);
  void ReadValues(std::int32_t rowCount);
  [[nodiscard]] int CompareRows(std::int32_t left, std::int32_t right) const;

  const RowSource& m_source;
  SortKey m_key;
  std::vector<std::int64_t> m_numbers;  ///< where the column holds dates or whole numbers only
  std::vector<Value> m_values;          ///< elsewhere
};

}  // namespace quorvel
