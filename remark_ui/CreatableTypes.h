#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvel {

class RemarkContext;

/// A remark type that the user may choose.
struct TypeChoice {
  std::string caption;
  std::int32_t position = 0;  ///< 1-based among the context's types
  friend bool operator==(const TypeChoice&, const TypeChoice&) = default;
};

/// The context's types whose remarks the user may create (CanCreate is not 0), in the order of the context.
[[nodiscard]] std::vector<TypeChoice> CreatableTypes(const RemarkContext& context);

}  // namespace quorvel
