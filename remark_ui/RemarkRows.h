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

/// The remarks of a context as rows of the editor's grid.
class RemarkRows : public RowSource {
 public:
  // Numbers of the columns that the editor groups and sorts by.
  static constexpr std::int32_t kTypeColumn = 2;
  static constexpr std::int32_t kDateColumn = 3;

  /// In the order of their numbers.
  [[nodiscard]] static std::vector<GridColumn> Columns();
  /// The column numbers from left to right.
  [[nodiscard]] static std::vector<std::int32_t> ColumnOrder();

  /// Null shows nothing. The context is asked for its list at each read, since it may replace the list.
  void SetContext(std::shared_ptr<const RemarkContext> context) noexcept;

  /// The words to show when there are no rows.
  [[nodiscard]] std::string EmptyText() const;

  [[nodiscard]] std::int32_t RowCount() const override;
  /// Null for a row that the list does not have (any more) and for other columns.
  [[nodiscard]] Value At(std::int32_t rowIndex, std::int32_t column) const override;
  /// Marks what the next save of the list writes.
  [[nodiscard]] std::string MarkOf(std::int32_t rowIndex) const override;

 private:
  [[nodiscard]] std::shared_ptr<Remark> RemarkAt(std::int32_t rowIndex) const;

  std::shared_ptr<const RemarkContext> m_context;
};

}  // namespace quorvel
