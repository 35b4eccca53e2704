#pragma once

#include <string_view>

#include "platform/Text.h"

namespace quorvel::ado {

/// Names of parameters and fields match without regard to letter case; a leading @ does not count.
[[nodiscard]] inline bool SameName(std::string_view left, std::string_view right) noexcept {
  const auto withoutAt = [](std::string_view name) { return name.substr(name.starts_with('@') ? 1 : 0); };
  return EqualIgnoringCase(withoutAt(left), withoutAt(right));
}

}  // namespace quorvel::ado
