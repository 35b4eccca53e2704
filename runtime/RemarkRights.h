#pragma once

#include <cstdint>
#include <string>

#include "runtime/RemarkContext.h"

namespace quorvel {

/// The changes that a user may make to one remark.
struct RemarkRights {
  bool canUpdate = false;
  bool canDelete = false;
};

/// The rights of `loginName` on the remark at a 1-based position: those of its type. Authors who may create a type may
/// also change and delete their own remarks of it, except for the type "Cust.AR.Coll". No rights when there is no such
/// remark.
[[nodiscard]] RemarkRights RightsOnRemark(const RemarkContext& context, std::int32_t position,
                                          const std::string& loginName);

}  // namespace quorvel
