#include "ado/Field.h"

#include "ado/Recordset.h"

namespace quorvel::ado {

const std::string& Field::Name() const { return m_recordset->Rows().Columns()[m_column].name; }

DataType Field::Type() const { return m_recordset->Rows().Columns()[m_column].type; }

quorvel::Value Field::Value() const {
  const RowSet& rows = m_recordset->Rows();
  return rows.At(m_recordset->CurrentRow(), m_column);
}

std::optional<std::string_view> Field::Text() const {
  const RowSet& rows = m_recordset->Rows();
  return rows.TextAt(m_recordset->CurrentRow(), m_column);
}

}  // namespace quorvel::ado
