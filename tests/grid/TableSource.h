#pragma once

#include <string>
#include <vector>

#include "grid/RowSource.h"
#include "platform/Error.h"

namespace quorvel::test {

/// The rows that a test lists.
class TableSource : public RowSource {
 public:
  explicit TableSource(std::vector<std::vector<Value>> cells) : rows(std::move(cells)) {}

  [[nodiscard]] std::int32_t RowCount() const override { return static_cast<std::int32_t>(rows.size()); }
  [[nodiscard]] Value At(std::int32_t rowIndex, std::int32_t column) const override {
    ++reads;
    if (fails) throw Error(ErrorNumber::DbUnspecified, "TableSource", "the connection is gone");
    return rows.at(static_cast<std::size_t>(rowIndex - 1)).at(static_cast<std::size_t>(column - 1));
  }

  [[nodiscard]] std::string MarkOf(std::int32_t rowIndex) const override {
    return rowIndex == markedRow ? "marked" : "";
  }

  std::vector<std::vector<Value>> rows;
  std::int32_t markedRow = 0;
  bool fails = false;
  mutable int reads = 0;
};

}  // namespace quorvel::test
