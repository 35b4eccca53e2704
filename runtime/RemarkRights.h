#pragma once

#include <cstdint>
#include <string>

#include "runtime/RemarkContext.h"

namespace quorvel {

/// What the user may do with the remark at a 1-based position, for showing it. Authors who may create a type may also
/// change and delete their own remarks of it, but for the type "Cust.AR.Coll".
struct RemarkRights {
  bool canUpdate = false;
  bool canDelete = false;
};

/// Grants the author's rights on the type for the time of the question and puts the type back as it was, also when the
/// question throws. `loginName` is the logon name. Nothing may be done where there is no such remark.
[[nodiscard]] RemarkRights RightsOnRemark(const RemarkContext& context, std::int32_t position,
                                          const std::string& loginName);

}  // namespace quorvel
