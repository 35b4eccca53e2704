#pragma once

#include <memory>
#include <vector>

#include "ado/Recordset.h"
#include "grid/GridColumn.h"
#include "grid/RowSource.h"

namespace quorvel {

/// The rows of a recordset that its filter lets through; the key of a column is the name of its field. Does not move
/// the recordset's current row.
class RecordsetSource : public RowSource {
 public:
  /// adErrItemNotFound for a column without a field.
  RecordsetSource(std::shared_ptr<ado::Recordset> recordset, const std::vector<GridColumn>& columns);

  [[nodiscard]] std::int32_t RowCount() const override;
  [[nodiscard]] Value At(std::int32_t rowIndex, std::int32_t column) const override;
  [[nodiscard]] ado::Recordset& Bound() const noexcept { return *m_recordset; }

 private:
  std::shared_ptr<ado::Recordset> m_recordset;
  std::vector<std::size_t> m_fields;
};

}  // namespace quorvel
