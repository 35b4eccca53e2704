#include "grid/RecordsetSource.h"

#include <utility>

namespace quorvel {

RecordsetSource::RecordsetSource(std::shared_ptr<ado::Recordset> recordset, const std::vector<GridColumn>& columns)
    : m_recordset(std::move(recordset)) {
  for (const GridColumn& column : columns) m_fields.push_back(m_recordset->Fields(column.key).Position());
}

std::int32_t RecordsetSource::RowCount() const { return m_recordset->RecordCount(); }

Value RecordsetSource::At(std::int32_t rowIndex, std::int32_t column) const {
  return m_recordset->At(rowIndex, m_fields.at(static_cast<std::size_t>(column - 1)));
}

}  // namespace quorvel
