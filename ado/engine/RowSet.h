#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/engine/DataType.h"
#include "platform/Value.h"

namespace quorvel::ado {

/// One column of a result; its type is Empty when the engine knows none, as for an expression.
struct Column {
  std::string name;
  DataType type = DataType::Empty;
};

/// A whole result in memory: 16 bytes a cell, texts packed into blocks. An engine fills it once, cell by
/// cell in row order; after that it does not change. Movable, not copyable.
class RowSet {
 public:
  explicit RowSet(std::vector<Column> columns) : m_columns(std::move(columns)) {}

  void AppendNull();
  void AppendBoolean(bool value);
  void AppendInteger(std::int64_t value);
  void AppendReal(double value);
  void AppendDateTime(DateTime value);
  /// UTF-8, at most 4 GB - 1 (std::length_error beyond that); embedded zeros are kept.
  void AppendText(std::string_view text);

  [[nodiscard]] const std::vector<Column>& Columns() const noexcept { return m_columns; }
  /// The 0-based column of that name as SameName matches, the exact spelling first; nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> FindColumn(std::string_view name) const noexcept;
  [[nodiscard]] std::size_t RowCount() const noexcept { return m_columns.empty() ? 0 : m_cellCount / m_columns.size(); }
  /// `row` and `column` are 0-based and must exist.
  [[nodiscard]] Value At(std::size_t row, std::size_t column) const;
  /// The text itself, valid as long as the row set; nothing when the cell holds no text.
  [[nodiscard]] std::optional<std::string_view> TextAt(std::size_t row, std::size_t column) const;

 private:
  enum class Kind : std::uint8_t { Null, Boolean, Integer, Real, DateTime, Text };
  struct Cell {
    union {
      std::int64_t integer;
      double real;
      const char* text;
    };
    std::uint32_t length;
    Kind kind;
  };
  /// Blocks are small enough that the allocator keeps them for the next result. Larger ones go back to the operating
  /// system, and getting their pages again costs more than filling them.
  static constexpr std::size_t kCellsPerBlock = 1024;

  [[nodiscard]] Cell& AddCell(Kind kind);
  [[nodiscard]] const char* Store(std::string_view text);
  [[nodiscard]] char* AddBlock(std::size_t needed);
  [[nodiscard]] const Cell& CellAt(std::size_t row, std::size_t column) const;

  std::vector<Column> m_columns;
  std::vector<std::unique_ptr<Cell[]>> m_cellBlocks;
  std::size_t m_cellCount = 0;
  std::vector<std::unique_ptr<char[]>> m_textBlocks;
  std::size_t m_blockSize = 0;
  char* m_free = nullptr;  ///< unused rest of the current block
  std::size_t m_freeSize = 0;
};

}  // namespace quorvel::ado
