#pragma once

#include <cstdint>
#include <vector>

#include "grid/RowSource.h"
#include "grid/SortKey.h"
#include "platform/Value.h"

namespace quorvel {

/// One column of a source, read once to compare rows while they are sorted. Of a long text it keeps only the beginning,
/// so that sorting a million long texts does not hold them all; when beginnings are equal it asks the source.
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
  std::vector<std::int64_t> m_numbers;  ///< if the column holds only dates or only whole numbers
  std::vector<Value> m_values;          ///< otherwise
};

}  // namespace quorvel
