#include "runtime/RemarkRights.h"

#include "platform/Text.h"

namespace quorvel {
namespace {

/// The one type whose remarks keep the rights of the type, whoever wrote them.
constexpr const char* kTypeWithoutAuthorsRights = "Cust.AR.Coll";

bool IsOwnRemark(const Remark& remark, const std::string& loginName) {
  return remark.RemarkType()->CanCreate() == 1 && EqualIgnoringCase(loginName, remark.UserID()) &&
         !EqualIgnoringCase(remark.TypeID(), kTypeWithoutAuthorsRights);
}

/// All remarks of a type share its rights, so nothing of a grant may outlive the question it was made for.
class MomentaryGrant {
 public:
  explicit MomentaryGrant(RemarkType& type) noexcept
      : m_type(type), m_canDelete(type.CanDelete()), m_canUpdate(type.CanUpdate()) {
    type.SetCanDelete(1);
    type.SetCanUpdate(1);
  }
  ~MomentaryGrant() {
    m_type.SetCanDelete(m_canDelete);
    m_type.SetCanUpdate(m_canUpdate);
  }
  MomentaryGrant(const MomentaryGrant&) = delete;
  MomentaryGrant& operator=(const MomentaryGrant&) = delete;

 private:
  RemarkType& m_type;
  std::int32_t m_canDelete;
  std::int32_t m_canUpdate;
};

RemarkRights RightsOnType(const RemarkContext& context, std::int32_t position) {
  return {context.CanUpdate(position), context.CanDelete(position)};
}

}  // namespace

RemarkRights RightsOnRemark(const RemarkContext& context, std::int32_t position, const std::string& loginName) {
  const auto& list = context.RemarkList();
  const auto remark = list ? list->Item(std::int64_t{position}) : nullptr;
  if (!remark || !remark->RemarkType() || !IsOwnRemark(*remark, loginName)) return RightsOnType(context, position);
  const MomentaryGrant grant(*remark->RemarkType());
  return RightsOnType(context, position);
}

}  // namespace quorvel
