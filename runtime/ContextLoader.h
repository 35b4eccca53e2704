#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/ContextRecord.h"
#include "runtime/MemoOwner.h"
#include "runtime/Remark.h"
#include "runtime/RemarkList.h"
#include "runtime/RemarkTypes.h"

/// The five queries of a load, in the order in which RemarkContext runs them, on the thread's shared connection, and
/// a look for one memo. Each function of the load fills an object of the caller value by value, so that an error
/// keeps the values read before it. Database errors pass through unchanged. Blanks around identifiers do not count.
namespace quorvel::contextLoader {

/// Error -1 when there is no such context.
void LoadContext(const std::string& contextID, ContextRecord& record);

/// Appends the context's types, without rights. `context` is the object that the types refer back to.
void LoadTypes(const std::string& contextID, const std::shared_ptr<RemarkContext>& context, RemarkTypes& types);

/// Sets the user's rights on the types. A type without a row keeps its rights.
void LoadRights(const std::string& userID, const RemarkTypes& types);

/// Error -1 when the procedure cannot run or finds no such owner.
void LoadOwner(const std::string& procedure, const std::string& ownerID, OwnerRecord& record);

/// Appends the owner's remarks whose type is in `types` and readable. Null means no types.
void LoadRemarks(const std::string& contextID, const MemoOwner& owner, const RemarkTypes* types, RemarkList& remarks);

enum class FoundMemo { None, Same, Other };

/// Looks among the owner's memos for the one with this key, also when the user may not read it: whether there is one,
/// of any type of the context, and whether its values have this MemoDigest.
[[nodiscard]] FoundMemo FindMemo(const std::string& contextID, const MemoOwner& owner, std::int32_t memoKey,
                                 std::uint32_t digest);

}  // namespace quorvel::contextLoader
