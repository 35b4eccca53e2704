#include "runtime/published/PublishedRemarkContext.h"

#include "platform/com/Members.h"
#include "runtime/HostPrompts.h"
#include "runtime/published/EnumerateObjects.h"

namespace quorvel::published {
namespace {

constexpr com::Parameter kIndexKey[] = {{OLESTR("i_vIndexKey")}};
constexpr com::Parameter kPosition[] = {{OLESTR("i_lIndex")}};
constexpr com::Parameter kLoading[] = {
    {OLESTR("i_sContextID")}, {OLESTR("i_sOwnerID"), true}, {OLESTR("i_sUserID"), true}};
constexpr com::Parameter kForcing[] = {{OLESTR("bForceSave"), true}};
constexpr com::Parameter kAdding[] = {
    {OLESTR("i_vRemarkTypeIndex")}, {OLESTR("i_sRemarkText")}, {OLESTR("i_sUserID"), true}};
constexpr com::Parameter kRefreshing[] = {{OLESTR("i_bRefresh"), true}};
constexpr com::Parameter kModal[] = {{OLESTR("i_lModal"), true}};

constexpr com::Member kMembers[] = {
    com::Get<&_RemarkContext::get_EditBehavior>(OLESTR("EditBehavior"), 1),
    com::Put<&_RemarkContext::put_EditBehavior>(OLESTR("EditBehavior"), 1),
    com::Get<&_RemarkContext::get_GroupByType>(OLESTR("GroupByType"), 3),
    com::Get<&_RemarkContext::get_AllowRowSizing>(OLESTR("AllowRowSizing"), 4),
    com::Get<&_RemarkContext::get_RowHeight>(OLESTR("RowHeight"), 5),
    com::Get<&_RemarkContext::get_UserID>(OLESTR("UserID"), 6),
    com::Get<&_RemarkContext::get_ContextID>(OLESTR("ContextID"), 7),
    com::Get<&_RemarkContext::get_OwnerID>(OLESTR("OwnerID"), 8),
    com::Put<&_RemarkContext::put_OwnerID>(OLESTR("OwnerID"), 8),
    com::Get<&_RemarkContext::get_Caption>(OLESTR("Caption"), 10),
    com::Get<&_RemarkContext::get_EntityKey>(OLESTR("EntityKey"), 11),
    com::Get<&_RemarkContext::get_EntityName>(OLESTR("EntityName"), 12),
    com::Get<&_RemarkContext::get_OwnerKey>(OLESTR("OwnerKey"), 13),
    com::Put<&_RemarkContext::put_OwnerKey>(OLESTR("OwnerKey"), 13),
    com::Get<&_RemarkContext::get_OwnerName>(OLESTR("OwnerName"), 15),
    com::Get<&_RemarkContext::get_RemarkList>(OLESTR("RemarkList"), 16),
    com::Get<&_RemarkContext::get_Item, kIndexKey>(OLESTR("Item"), DISPID_VALUE),
    com::Get<&_RemarkContext::get_TypeCount>(OLESTR("TypeCount"), 18),
    com::Get<&_RemarkContext::get_MemoCount>(OLESTR("MemoCount"), 19),
    com::Get<&_RemarkContext::get_PopupCount>(OLESTR("PopupCount"), 20),
    com::Get<&_RemarkContext::get_NewEnum>(OLESTR("NewEnum"), DISPID_NEWENUM),
    com::Get<&_RemarkContext::get_CreateableTypes>(OLESTR("CreateableTypes"), 22),
    com::Get<&_RemarkContext::get_ConnectionString>(OLESTR("ConnectionString"), 23),
    com::Function<&_RemarkContext::CanUpdate, kPosition>(OLESTR("CanUpdate"), 24),
    com::Function<&_RemarkContext::CanDelete, kPosition>(OLESTR("CanDelete"), 25),
    com::Function<&_RemarkContext::CanCreate, kPosition>(OLESTR("CanCreate"), 26),
    com::Method<&_RemarkContext::Edit, kLoading>(OLESTR("Edit"), 27),
    com::Method<&_RemarkContext::Popup, kLoading>(OLESTR("Popup"), 28),
    com::Method<&_RemarkContext::Load, kLoading>(OLESTR("Load"), 29),
    com::Method<&_RemarkContext::Save, kForcing>(OLESTR("Save"), 30),
    com::Method<&_RemarkContext::RefreshRemarkList>(OLESTR("RefreshRemarkList"), 31),
    com::Method<&_RemarkContext::Dispose>(OLESTR("Dispose"), 32),
    com::Method<&_RemarkContext::AddRemark, kAdding>(OLESTR("AddRemark"), 33),
    com::Method<&_RemarkContext::PopupMemos, kRefreshing>(OLESTR("PopupMemos"), 34),
    com::Method<&_RemarkContext::EditMemos, kRefreshing>(OLESTR("EditMemos"), 35),
    com::Method<&_RemarkContext::ViewManager, kModal>(OLESTR("ViewManager"), 36),
    com::Get<&_RemarkContext::get_Server>(OLESTR("Server"), 37),
};

IDispatch* Create() {
  // Only contexts ask the user questions.
  UseHostPrompts();
  return Publish(RemarkContext::Create());
}

}  // namespace

const PublishedClass& RemarkContextClass() noexcept {
  static constexpr PublishedClass kClass{
      OLESTR("RemarkContext"), OLESTR("_RemarkContext"), CLSID_RemarkContext, IID__RemarkContext, kMembers, Create};
  return kClass;
}

_RemarkContext* Publish(const std::shared_ptr<RemarkContext>& object) {
  return PublishAs<PublishedRemarkContext>(RemarkContextClass(), object);
}

std::shared_ptr<RemarkContext> Unpublish(_RemarkContext* object) {
  return UnpublishAs<PublishedRemarkContext, RemarkContext>(RemarkContextClass(), object);
}

HRESULT PublishedRemarkContext::get_NewEnum(IUnknown** enumerator) noexcept {
  return Deliver(enumerator, [](const RemarkContext& context) {
    return EnumerateObjects(
        context.Types(), [](const RemarkTypes& types) -> const auto& { return types.All(); });
  });
}

}  // namespace quorvel::published
