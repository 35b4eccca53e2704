#include "runtime/published/PublishedRemarkList.h"

#include "platform/com/Members.h"
#include "runtime/published/EnumerateObjects.h"

namespace quorvel::published {
namespace {

constexpr com::Parameter kIndexKey[] = {{OLESTR("i_vIndexKey")}};
constexpr com::Parameter kRemark[] = {{OLESTR("i_oRemark")}};
constexpr com::Parameter kClearing[] = {{OLESTR("i_bRecreateCollection"), true, VARIANT_TRUE}};

constexpr com::Member kMembers[] = {
    com::Get<&_RemarkList::get_NewEnum>(OLESTR("NewEnum"), DISPID_NEWENUM),
    com::Get<&_RemarkList::get_Item, kIndexKey>(OLESTR("Item"), DISPID_VALUE),
    com::Get<&_RemarkList::get_Count>(OLESTR("Count"), 3),
    com::Get<&_RemarkList::get_PopupCount>(OLESTR("PopupCount"), 4),
    com::Get<&_RemarkList::get_Dirty>(OLESTR("Dirty"), 5),
    com::Function<&_RemarkList::Index, kRemark>(OLESTR("Index"), 6),
    com::Method<&_RemarkList::Backup>(OLESTR("Backup"), 7),
    com::Method<&_RemarkList::Restore>(OLESTR("Restore"), 8),
    com::Function<&_RemarkList::Add>(OLESTR("Add"), 9),
    com::Method<&_RemarkList::AddRemark, kRemark>(OLESTR("AddRemark"), 10),
    com::Method<&_RemarkList::Save>(OLESTR("Save"), 11),
    com::Method<&_RemarkList::Remove, kIndexKey>(OLESTR("Remove"), 12),
    com::Method<&_RemarkList::Clear, kClearing>(OLESTR("Clear"), 13),
};

}  // namespace

const PublishedClass& RemarkListClass() noexcept {
  static constexpr PublishedClass kClass{
      OLESTR("RemarkList"), OLESTR("_RemarkList"), CLSID_RemarkList, IID__RemarkList, kMembers, nullptr};
  return kClass;
}

_RemarkList* Publish(const std::shared_ptr<RemarkList>& object) {
  return PublishAs<PublishedRemarkList>(RemarkListClass(), object);
}

HRESULT PublishedRemarkList::get_NewEnum(IUnknown** enumerator) noexcept {
  return Deliver(enumerator, [](const RemarkList& list) { return EnumerateObjects(list.Items(), std::identity{}); });
}

}  // namespace quorvel::published
