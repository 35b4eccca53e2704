#pragma once

#include <cstdint>

#include "platform/Value.h"

namespace quorvel {

/// A column that rows are sorted or grouped by.
struct SortKey {
  std::int32_t column = 0;  ///< 1-based
  bool ascending = true;
};

/// The ascending order: less than, equal to or greater than 0. Null comes first, then numbers and booleans, dates and
/// texts; texts are compared without regard to letter case.
[[nodiscard]] int CompareValues(const Value& left, const Value& right) noexcept;

}  // namespace quorvel
