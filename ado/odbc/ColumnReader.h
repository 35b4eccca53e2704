#pragma once

#include <cstddef>
#include <vector>

#include "ado/engine/RowSet.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Reads the cells of one result column, either in blocks through a bound buffer or one by one. A text without a useful
/// limit is read in pieces.
class ColumnReader {
 public:
  /// Asks the driver to describe column `number` (1-based) of the open result.
  ColumnReader(Statement& statement, SQLUSMALLINT number);

  [[nodiscard]] const Column& Description() const noexcept { return m_column; }
  /// Bytes of a cell in the bound buffer; 0 for a text that is read in pieces.
  [[nodiscard]] std::size_t Width() const noexcept { return m_width; }

  /// Binds the column for blocks of `rows` rows. Width must not be 0, and the reader must not move afterwards.
  void Bind(std::size_t rows);

  /// Appends the cell in `row` of the fetched block (0-based; 0 for an unbound column, whose cell is fetched
  /// now). DriverError 22001 when the text is longer than the driver announced.
  void AppendTo(RowSet& rows, std::size_t row);

 private:
  enum class Form { Integer, Real, Boolean, DateTime, Text };

  void Plan(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits);
  void SetForm(Form form, std::size_t width);
  [[nodiscard]] SQLSMALLINT ClientType() const noexcept;
  [[nodiscard]] SQLRETURN GetData(SQLPOINTER buffer, std::size_t bytes, SQLLEN& length);
  void AppendCell(RowSet& rows, const std::byte* cell, SQLLEN length) const;
  void AppendText(RowSet& rows, const std::byte* cell, SQLLEN length) const;
  void AppendPieces(RowSet& rows);

  Statement& m_statement;
  SQLUSMALLINT m_number;
  Column m_column;
  Form m_form = Form::Text;
  std::size_t m_width = 0;
  bool m_isBound = false;
  std::vector<std::byte> m_cells;
  std::vector<SQLLEN> m_lengths;
};

}  // namespace quorvel::ado::odbc
