#include "runtime/published/PublishedRemarkType.h"

#include "platform/com/Members.h"

namespace quorvel::published {
namespace {

constexpr com::Member kMembers[] = {
    com::Get<&_RemarkType::get_Context>(OLESTR("Context"), 1),
    com::PutRef<&_RemarkType::putref_Context>(OLESTR("Context"), 1),
    com::Get<&_RemarkType::get_TypeID>(OLESTR("TypeID"), 3),
    com::Put<&_RemarkType::put_TypeID>(OLESTR("TypeID"), 3),
    com::Get<&_RemarkType::get_Caption>(OLESTR("Caption"), 5),
    com::Put<&_RemarkType::put_Caption>(OLESTR("Caption"), 5),
    com::Get<&_RemarkType::get_ShowPopup>(OLESTR("ShowPopup"), 7),
    com::Put<&_RemarkType::put_ShowPopup>(OLESTR("ShowPopup"), 7),
    com::Get<&_RemarkType::get_CanCreate>(OLESTR("CanCreate"), 9),
    com::Put<&_RemarkType::put_CanCreate>(OLESTR("CanCreate"), 9),
    com::Get<&_RemarkType::get_CanRead>(OLESTR("CanRead"), 11),
    com::Put<&_RemarkType::put_CanRead>(OLESTR("CanRead"), 11),
    com::Get<&_RemarkType::get_CanUpdate>(OLESTR("CanUpdate"), 13),
    com::Put<&_RemarkType::put_CanUpdate>(OLESTR("CanUpdate"), 13),
    com::Get<&_RemarkType::get_CanDelete>(OLESTR("CanDelete"), 15),
    com::Put<&_RemarkType::put_CanDelete>(OLESTR("CanDelete"), 15),
};

}  // namespace

const PublishedClass& RemarkTypeClass() noexcept {
  static constexpr PublishedClass kClass{
      OLESTR("RemarkType"), OLESTR("_RemarkType"), CLSID_RemarkType, IID__RemarkType, kMembers, nullptr};
  return kClass;
}

_RemarkType* Publish(const std::shared_ptr<RemarkType>& object) {
  return PublishAs<PublishedRemarkType>(RemarkTypeClass(), object);
}

std::shared_ptr<RemarkType> Unpublish(_RemarkType* object) {
  return UnpublishAs<PublishedRemarkType, RemarkType>(RemarkTypeClass(), object);
}

}  // namespace quorvel::published
