#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/EditBehavior.h"

namespace quorvel {

/// The host's record to which a memo belongs.
struct MemoOwner {
  std::int32_t entityKey = 0;  ///< the host's number for the kind of record
  std::int32_t ownerKey = 0;
  friend bool operator==(const MemoOwner&, const MemoOwner&) = default;
};

/// The owner, the edit behaviour and the user for which a list was read. They stay with the list when its context has
/// begun to read something else.
struct ListOrigin {
  std::optional<MemoOwner> owner;  ///< empty while no owner was found
  EditBehavior editBehavior = EditBehavior::AutoSaveOnClose;
  std::string userID;  ///< the author of the remarks that have none
};

}  // namespace quorvel
