#pragma once

#include <cstdint>

namespace quorvel {

/// A remark type in a context: one row of ttwRemarkContext, whose DisplaySeq is the type's position there.
struct ContextLink {
  std::int32_t contextKey = 0;
  std::int32_t remarkTypeKey = 0;
};

/// Writes the link's position.
void WriteDisplaySeq(const ContextLink& link, std::int32_t displaySeq);

}  // namespace quorvel
