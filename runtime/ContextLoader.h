#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "data/modDatabase.h"
#include "runtime/ContextRecord.h"
#include "runtime/MemoOwner.h"
#include "runtime/Remark.h"
#include "runtime/RemarkList.h"
#include "runtime/RemarkTypes.h"

/// The five queries of a load, in the order in which RemarkContext runs them, on the thread's shared connection, and
/// a look for one memo. Each function of the load fills an object of the caller value by value, so that an error
/// keeps the values read before it. Database errors pass through unchanged. Blanks around identifiers do not count.
namespace quorvel::contextLoader {

/// Context, types and rights, which do not need each other's answers, so that a server may get the three queries in one
/// request. To be loaded once each, in the order of the functions.
class ContextQueries {
 public:
  ContextQueries(std::string contextID, const std::string& userID);

  /// Error -1 when there is no such context.
  void LoadContext(ContextRecord& record);

  /// Appends the context's types, without rights. `context` is the object that the types refer back to.
  void LoadTypes(const std::shared_ptr<RemarkContext>& context, RemarkTypes& types);

  /// Sets the user's rights on the types. A type without a row keeps its rights.
  void LoadRights(const RemarkTypes& types);

 private:
  std::string m_contextID;
  modDatabase::DeclaredCalls m_calls;
  std::exception_ptr m_unfitUserID;  ///< an error of the third query alone
};

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
