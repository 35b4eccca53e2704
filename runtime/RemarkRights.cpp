#include "runtime/RemarkRights.h"

#include "platform/Text.h"

namespace quorvel {
namespace {

/// Authors have no rights of their own on remarks of this type.
constexpr const char* kTypeWithoutAuthorsRights = "Cust.AR.Coll";

/// A remark may have a type that this context has since loaded again; then only the new type counts.
bool IsOwnRemark(const RemarkContext& context, const Remark& remark, const std::string& loginName) {
  const auto& type = remark.RemarkType();
  return type && type->CanCreate() == 1 && EqualIgnoringCase(loginName, remark.UserID()) &&
         !EqualIgnoringCase(remark.TypeID(), kTypeWithoutAuthorsRights) && context.Item(remark.TypeID()) == type;
}

}  // namespace

RemarkRights RightsOnRemark(const RemarkContext& context, std::int32_t position, const std::string& loginName) {
  const auto& list = context.RemarkList();
  const auto remark = list ? list->Item(std::int64_t{position}) : nullptr;
  const bool isAuthor = remark && IsOwnRemark(context, *remark, loginName);
  return {isAuthor || context.CanUpdate(position), isAuthor || context.CanDelete(position)};
}

}  // namespace quorvel
