#include "runtime/published/PublishedRemark.h"

#include "platform/com/Members.h"

namespace quorvel::published {
namespace {

constexpr com::Member kMembers[] = {
    com::Get<&_Remark::get_RemarkType>(OLESTR("RemarkType"), 1),
    com::PutRef<&_Remark::putref_RemarkType>(OLESTR("RemarkType"), 1),
    com::Get<&_Remark::get_MemoKey>(OLESTR("MemoKey"), 3),
    com::Put<&_Remark::put_MemoKey>(OLESTR("MemoKey"), 3),
    com::Get<&_Remark::get_OwnerKey>(OLESTR("OwnerKey"), 5),
    com::Get<&_Remark::get_EntityKey>(OLESTR("EntityKey"), 6),
    com::Get<&_Remark::get_TypeID>(OLESTR("TypeID"), 7),
    com::Get<&_Remark::get_TypeCaption>(OLESTR("TypeCaption"), 8),
    com::Get<&_Remark::get_ShowPopup>(OLESTR("ShowPopup"), 9),
    com::Get<&_Remark::get_DateStamp>(OLESTR("DateStamp"), 10),
    com::Put<&_Remark::put_DateStamp>(OLESTR("DateStamp"), 10),
    com::Get<&_Remark::get_UserID>(OLESTR("UserID"), 12),
    com::Put<&_Remark::put_UserID>(OLESTR("UserID"), 12),
    com::Get<&_Remark::get_MemoText>(OLESTR("MemoText"), 14),
    com::Put<&_Remark::put_MemoText>(OLESTR("MemoText"), 14),
    com::Get<&_Remark::get_Dirty>(OLESTR("Dirty"), 16),
    com::Put<&_Remark::put_Dirty>(OLESTR("Dirty"), 16),
    com::Method<&_Remark::Commit>(OLESTR("Commit"), 18),
    com::Method<&_Remark::Delete>(OLESTR("Delete"), 19),
};

IDispatch* Create() { return Publish(std::make_shared<Remark>()); }

}  // namespace

const PublishedClass& RemarkClass() noexcept {
  static constexpr PublishedClass kClass{OLESTR("Remark"), OLESTR("_Remark"), CLSID_Remark,
                                         IID__Remark,      kMembers,          Create};
  return kClass;
}

_Remark* Publish(const std::shared_ptr<Remark>& object) { return PublishAs<PublishedRemark>(RemarkClass(), object); }

std::shared_ptr<Remark> Unpublish(_Remark* object) {
  return UnpublishAs<PublishedRemark, Remark>(RemarkClass(), object);
}

}  // namespace quorvel::published
