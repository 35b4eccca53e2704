#pragma once

#include <cstdint>
#include <string>

#include "platform/Value.h"

namespace quorvel {

/// The rows that a grid shows. The grid asks only for the values that it shows, sorts by or groups by.
class RowSource {
 public:
  virtual ~RowSource() = default;
  [[nodiscard]] virtual std::int32_t RowCount() const = 0;
  /// Both 1-based. The grid passes errors on to its window.
  [[nodiscard]] virtual Value At(std::int32_t rowIndex, std::int32_t column) const = 0;
  /// Why a row has a mark; empty for a row without one.
  [[nodiscard]] virtual std::string MarkOf(std::int32_t /*rowIndex*/) const { return {}; }
};

}  // namespace quorvel
