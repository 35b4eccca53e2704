// A position counts the visible rows. The list of visible rows is used only while a filter is set; without a filter a
// position is the row itself.

#include "ado/Recordset.h"

#include <fmt/format.h>

#include <algorithm>

#include "ado/Connection.h"
#include "ado/Filter.h"
#include "ado/engine/AdoError.h"
#include "platform/Error.h"

namespace quorvel::ado {

Recordset::Recordset(std::shared_ptr<Connection> connection, std::optional<RowSet> rows)
    : m_connection(std::move(connection)) {
  if (rows && !rows->Columns().empty()) m_rows = std::make_unique<const RowSet>(std::move(*rows));
}

void Recordset::Open(std::string_view source, std::shared_ptr<Connection> connection) {
  if (IsOpen()) ThrowAdoError(ErrorNumber::AdoObjectOpen);
  if (!connection || !connection->IsOpen()) ThrowAdoError(ErrorNumber::AdoInvalidConnection);
  Result result = connection->Run(source);
  *this = Recordset(std::move(connection), std::move(result.rows));
}

Field Recordset::Fields(std::string_view name) const {
  const auto column = Rows().FindColumn(name);
  if (!column) ThrowAdoError(ErrorNumber::AdoItemNotFound, fmt::format("There is no field \"{}\".", name));
  return {*this, *column};
}

Field Recordset::Fields(std::size_t position) const {
  if (position >= FieldCount()) {
    ThrowAdoError(ErrorNumber::AdoItemNotFound, fmt::format("There is no field at position {}.", position));
  }
  return {*this, position};
}

std::size_t Recordset::FieldCount() const { return Rows().Columns().size(); }

bool Recordset::EndOfFile() const { return m_position >= VisibleCount(); }

std::int32_t Recordset::RecordCount() const { return static_cast<std::int32_t>(VisibleCount()); }

void Recordset::MoveFirst() {
  if (VisibleCount() == 0) ThrowAdoError(ErrorNumber::AdoNoCurrentRecord);
  m_position = 0;
}

void Recordset::MoveNext() {
  if (EndOfFile()) ThrowAdoError(ErrorNumber::AdoNoCurrentRecord);
  ++m_position;
}

void Recordset::MoveLast() {
  if (VisibleCount() == 0) ThrowAdoError(ErrorNumber::AdoNoCurrentRecord);
  m_position = VisibleCount() - 1;
}

void Recordset::SetFilter(std::string_view criteria) {
  const RowSet& rows = Rows();
  std::string filter(criteria);
  std::vector<std::uint32_t> visible;
  if (!filter.empty()) visible = SelectRows(rows, filter);
  m_filter = std::move(filter);
  m_visible = std::move(visible);
  m_position = 0;
}

const std::string& Recordset::Filter() const {
  if (!IsOpen()) ThrowAdoError(ErrorNumber::AdoObjectClosed);
  return m_filter;
}

std::int32_t Recordset::Bookmark() const { return static_cast<std::int32_t>(CurrentRow()) + 1; }

void Recordset::SetBookmark(std::int32_t bookmark) {
  const std::int64_t row = std::int64_t{bookmark} - 1;
  if (row < 0 || row >= static_cast<std::int64_t>(Rows().RowCount())) {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument, fmt::format("There is no row {}.", bookmark));
  }
  if (m_filter.empty()) {
    m_position = static_cast<std::size_t>(row);
    return;
  }
  const auto found = std::lower_bound(m_visible.begin(), m_visible.end(), row);
  if (found == m_visible.end() || *found != row) {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument, fmt::format("The filter hides row {}.", bookmark));
  }
  m_position = static_cast<std::size_t>(found - m_visible.begin());
}

quorvel::Value Recordset::At(std::int32_t row, std::size_t field) const {
  if (field >= FieldCount()) {
    ThrowAdoError(ErrorNumber::AdoItemNotFound, fmt::format("There is no field at position {}.", field));
  }
  return m_rows->At(VisibleRow(row), field);
}

std::int32_t Recordset::BookmarkAt(std::int32_t row) const { return static_cast<std::int32_t>(VisibleRow(row)) + 1; }

std::size_t Recordset::VisibleRow(std::int32_t row) const {
  if (row < 1 || static_cast<std::size_t>(row) > VisibleCount()) {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument, fmt::format("There is no row {}.", row));
  }
  const auto visible = static_cast<std::size_t>(row) - 1;
  return m_filter.empty() ? visible : m_visible[visible];
}

const RowSet& Recordset::Rows() const {
  if (!IsOpen()) ThrowAdoError(ErrorNumber::AdoObjectClosed);
  return *m_rows;
}

std::size_t Recordset::VisibleCount() const { return m_filter.empty() ? Rows().RowCount() : m_visible.size(); }

std::size_t Recordset::CurrentRow() const {
  if (EndOfFile()) ThrowAdoError(ErrorNumber::AdoNoCurrentRecord);
  return m_filter.empty() ? m_position : m_visible[m_position];
}

}  // namespace quorvel::ado
