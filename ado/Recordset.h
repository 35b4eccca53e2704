#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Field.h"
#include "ado/engine/RowSet.h"

namespace quorvel::ado {

class Connection;
/// A static snapshot of a result: read whole when it is opened, then walked, counted, filtered and
/// bookmarked without the database.
///
/// A recordset is closed until it gets a result with columns. While it is closed, every operation except Open, IsOpen
/// and those on the active connection throws adErrObjectClosed. An opened one is at its first row, if any.
class Recordset {
 public:
  Recordset() = default;
  Recordset(std::shared_ptr<Connection> connection, std::optional<RowSet> rows);

  /// Runs `source` on `connection` and holds its first result set; it stays closed when there is none or the provider
  /// fails. adErrObjectOpen when it is open already, adErrInvalidConnection without an open connection.
  void Open(std::string_view source, std::shared_ptr<Connection> connection);
  [[nodiscard]] bool IsOpen() const noexcept { return m_rows != nullptr; }

  /// The field of that name (letter case does not count) or 0-based position; else adErrItemNotFound.
  [[nodiscard]] Field Fields(std::string_view name) const;
  [[nodiscard]] Field Fields(std::size_t position) const;
  [[nodiscard]] std::size_t FieldCount() const;

  [[nodiscard]] bool EndOfFile() const;
  /// The number of rows that pass the filter.
  [[nodiscard]] std::int32_t RecordCount() const;
  /// adErrNoCurrentRecord without rows.
  void MoveFirst();
  /// After the last row comes the end of the file; adErrNoCurrentRecord when it is there already.
  void MoveNext();
  /// adErrNoCurrentRecord without rows.
  void MoveLast();

  /// Criteria as SelectRows reads them; the empty text shows all rows. Setting it moves to the first row
  /// that passes. Throws adErrInvalidArgument for criteria that cannot be read and
  /// adErrItemNotFound for an unknown field, and then nothing changes.
  void SetFilter(std::string_view criteria);
  [[nodiscard]] const std::string& Filter() const;

  /// The current row's number in the unfiltered snapshot, 1-based; adErrNoCurrentRecord at the end.
  [[nodiscard]] std::int32_t Bookmark() const;
  /// Moves to that row; adErrInvalidArgument when the filter hides it or it does not exist.
  void SetBookmark(std::int32_t bookmark);

  /// A value and the bookmark of any row, without a move: `row` is 1-based among the rows that pass the filter, `field`
  /// 0-based. adErrInvalidArgument for a row and adErrItemNotFound for a field that does not exist.
  [[nodiscard]] Value At(std::int32_t row, std::size_t field) const;
  [[nodiscard]] std::int32_t BookmarkAt(std::int32_t row) const;

  /// Null once detached. Detaching keeps rows, filter and position.
  [[nodiscard]] const std::shared_ptr<Connection>& ActiveConnection() const noexcept { return m_connection; }
  void SetActiveConnection(std::shared_ptr<Connection> connection) { m_connection = std::move(connection); }

 private:
  friend class Field;
  [[nodiscard]] const RowSet& Rows() const;
  [[nodiscard]] std::size_t VisibleCount() const;
  [[nodiscard]] std::size_t CurrentRow() const;
  [[nodiscard]] std::size_t VisibleRow(std::int32_t row) const;

  std::shared_ptr<Connection> m_connection;
  std::unique_ptr<const RowSet> m_rows;
  std::string m_filter;
  std::vector<std::uint32_t> m_visible;  ///< rows that pass the filter; unused while it is empty
  std::size_t m_position = 0;            ///< 0-based among the visible rows
};

}  // namespace quorvel::ado
