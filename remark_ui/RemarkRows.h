#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "grid/GridColumn.h"
#include "grid/RowSource.h"

namespace quorvel {

class Remark;
class RemarkContext;

/// The remarks of a context as rows of the editor's grid. The host may change the context's list at any time. The rows
/// stay as they were read, so that a row is the remark that the user sees on it.
class RemarkRows : public RowSource {
 public:
  // Numbers of the columns that the editor groups and sorts by.
  static constexpr std::int32_t kTypeColumn = 2;
  static constexpr std::int32_t kDateColumn = 3;

  /// In the order of their numbers.
  [[nodiscard]] static std::vector<GridColumn> Columns();
  /// The column numbers from left to right.
  [[nodiscard]] static std::vector<std::int32_t> ColumnOrder();

  /// Reads the rows. Null shows nothing.
  void SetContext(std::shared_ptr<const RemarkContext> context);
  /// Takes the remarks that the context's list has now. The grid must then be fetched again.
  void Read();
  /// The row of a remark, also where the list has another object for its memo; 0 when there is none.
  [[nodiscard]] std::int32_t RowOf(const std::shared_ptr<Remark>& remark) const;
  /// Whether the list still has just these remarks.
  [[nodiscard]] bool IsUpToDate() const noexcept;
  /// Null for a row that does not exist.
  [[nodiscard]] std::shared_ptr<Remark> RemarkAt(std::int32_t rowIndex) const noexcept;

  /// The words to show when there are no rows.
  [[nodiscard]] std::string EmptyText() const;

  [[nodiscard]] std::int32_t RowCount() const override;
  /// Null for a row that does not exist and for other columns.
  [[nodiscard]] Value At(std::int32_t rowIndex, std::int32_t column) const override;
  /// Marks what the next save of the list writes.
  [[nodiscard]] std::string MarkOf(std::int32_t rowIndex) const override;

 private:
  std::shared_ptr<const RemarkContext> m_context;
  std::vector<std::shared_ptr<Remark>> m_remarks;
};

}  // namespace quorvel
