#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "bench/BareGrid.h"
#include "runtime/RemarkContext.h"

namespace quorvel::bench {

/// The remarks of one owner, and the same as structs.
struct LoadedRemarks {
  std::shared_ptr<RemarkContext> context = RemarkContext::Create();
  std::vector<BareRemark> structs;
};

/// The remarks of the owner who has `count` of them, loaded once.
const LoadedRemarks& Remarks(std::int64_t count);

}  // namespace quorvel::bench
