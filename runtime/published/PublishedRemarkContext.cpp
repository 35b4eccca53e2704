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
    com::Get<&_RemarkContext::get_Item>(OLESTR("Item"), DISPID_VALUE, kIndexKey),
    com::Get<&_RemarkContext::get_TypeCount>(OLESTR("TypeCount"), 18),
    com::Get<&_RemarkContext::get_MemoCount>(OLESTR("MemoCount"), 19),
    com::Get<&_RemarkContext::get_PopupCount>(OLESTR("PopupCount"), 20),
    com::Get<&_RemarkContext::get_NewEnum>(OLESTR("NewEnum"), DISPID_NEWENUM),
    com::Get<&_RemarkContext::get_CreateableTypes>(OLESTR("CreateableTypes"), 22),
    com::Get<&_RemarkContext::get_ConnectionString>(OLESTR("ConnectionString"), 23),
    com::Function<&_RemarkContext::CanUpdate>(OLESTR("CanUpdate"), 24, kPosition),
    com::Function<&_RemarkContext::CanDelete>(OLESTR("CanDelete"), 25, kPosition),
    com::Function<&_RemarkContext::CanCreate>(OLESTR("CanCreate"), 26, kPosition),
    com::Method<&_RemarkContext::Edit>(OLESTR("Edit"), 27, kLoading),
    com::Method<&_RemarkContext::Popup>(OLESTR("Popup"), 28, kLoading),
    com::Method<&_RemarkContext::Load>(OLESTR("Load"), 29, kLoading),
    com::Method<&_RemarkContext::Save>(OLESTR("Save"), 30, kForcing),
    com::Method<&_RemarkContext::RefreshRemarkList>(OLESTR("RefreshRemarkList"), 31),
    com::Method<&_RemarkContext::Dispose>(OLESTR("Dispose"), 32),
    com::Method<&_RemarkContext::AddRemark>(OLESTR("AddRemark"), 33, kAdding),
    com::Method<&_RemarkContext::PopupMemos>(OLESTR("PopupMemos"), 34, kRefreshing),
    com::Method<&_RemarkContext::EditMemos>(OLESTR("EditMemos"), 35, kRefreshing),
    com::Method<&_RemarkContext::ViewManager>(OLESTR("ViewManager"), 36, kModal),
    com::Get<&_RemarkContext::get_Server>(OLESTR("Server"), 37),
};

IDispatch* Create() {
  // Contexts are what asks.
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
