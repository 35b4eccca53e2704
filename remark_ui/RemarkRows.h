#pragma once

#include <cstdint>
#include <memory>

#include "grid/GridRows.h"

namespace quorvel {

class RemarkContext;

/// The remarks of a context as rows of a grid: column 1 the key, then type, date, user and text.
class RemarkRows : public RowSource {
 public:
  /// Null shows nothing. The list is asked for anew each time, since the context may replace it.
  void SetContext(std::shared_ptr<const RemarkContext> context) noexcept;

  [[nodiscard]] std::int32_t RowCount() const override;
  /// Null for a row that the list does not have (any more) and for other columns.
  [[nodiscard]] Value At(std::int32_t rowIndex, std::int32_t column) const override;

 private:
  std::shared_ptr<const RemarkContext> m_context;
};

}  // namespace quorvel
