#pragma once

#include <cstdint>
#include <memory>

#include "runtime/published/PublishedObject.h"

namespace quorvel::published {

/// A RemarkContext as hosts see it.
class PublishedRemarkContext final : public PublishedObject<_RemarkContext, RemarkContext> {
 public:
  using PublishedObject::PublishedObject;

  HRESULT QUORVEL_CALL get_EditBehavior(Quorvel::EditBehavior* behavior) noexcept override {
    return Deliver(behavior,
                   [](const RemarkContext& context) { return static_cast<std::int32_t>(context.EditBehavior()); });
  }
  HRESULT QUORVEL_CALL put_EditBehavior(Quorvel::EditBehavior* behavior) noexcept override {
    return Perform([&](RemarkContext& context) {
      context.SetEditBehavior(static_cast<quorvel::EditBehavior>(static_cast<std::int32_t>(Required(behavior))));
    });
  }
  HRESULT QUORVEL_CALL get_GroupByType(VARIANT_BOOL* groupByType) noexcept override {
    return Deliver(groupByType, &RemarkContext::GroupByType);
  }
  HRESULT QUORVEL_CALL get_AllowRowSizing(VARIANT_BOOL* allow) noexcept override {
    return Deliver(allow, &RemarkContext::AllowRowSizing);
  }
  HRESULT QUORVEL_CALL get_RowHeight(LONG* height) noexcept override {
    return Deliver(height, &RemarkContext::RowHeight);
  }
  HRESULT QUORVEL_CALL get_UserID(BSTR* userID) noexcept override { return Deliver(userID, &RemarkContext::UserID); }
  HRESULT QUORVEL_CALL get_ContextID(BSTR* contextID) noexcept override {
    return Deliver(contextID, &RemarkContext::ContextID);
  }
  HRESULT QUORVEL_CALL get_OwnerID(BSTR* ownerID) noexcept override {
    return Deliver(ownerID, &RemarkContext::OwnerID);
  }
  HRESULT QUORVEL_CALL put_OwnerID(BSTR* ownerID) noexcept override {
    return Perform([&](RemarkContext& context) { context.SetOwnerID(com::FromBstr(Required(ownerID))); });
  }
  HRESULT QUORVEL_CALL get_Caption(BSTR* caption) noexcept override {
    return Deliver(caption, &RemarkContext::Caption);
  }
  HRESULT QUORVEL_CALL get_EntityKey(LONG* key) noexcept override { return Deliver(key, &RemarkContext::EntityKey); }
  HRESULT QUORVEL_CALL get_EntityName(BSTR* name) noexcept override {
    return Deliver(name, &RemarkContext::EntityName);
  }
  HRESULT QUORVEL_CALL get_OwnerKey(LONG* key) noexcept override { return Deliver(key, &RemarkContext::OwnerKey); }
  HRESULT QUORVEL_CALL put_OwnerKey(LONG key) noexcept override {
    return Perform([&](RemarkContext& context) { context.SetOwnerKey(key); });
  }
  HRESULT QUORVEL_CALL get_OwnerName(BSTR* name) noexcept override { return Deliver(name, &RemarkContext::OwnerName); }
  HRESULT QUORVEL_CALL get_RemarkList(_RemarkList** list) noexcept override {
    return Deliver(list, &RemarkContext::RemarkList);
  }
  HRESULT QUORVEL_CALL get_Item(VARIANT* i_vIndexKey, _RemarkType** type) noexcept override {
    return Deliver(type, [&](const RemarkContext& context) { return context.Item(IndexOf(Required(i_vIndexKey))); });
  }
  HRESULT QUORVEL_CALL get_TypeCount(LONG* count) noexcept override {
    return Deliver(count, &RemarkContext::TypeCount);
  }
  HRESULT QUORVEL_CALL get_MemoCount(LONG* count) noexcept override {
    return Deliver(count, &RemarkContext::MemoCount);
  }
  HRESULT QUORVEL_CALL get_PopupCount(LONG* count) noexcept override {
    return Deliver(count, &RemarkContext::PopupCount);
  }
  HRESULT QUORVEL_CALL get_NewEnum(IUnknown** enumerator) noexcept override;
  HRESULT QUORVEL_CALL get_CreateableTypes(LONG* count) noexcept override {
    return Deliver(count, &RemarkContext::CreateableTypes);
  }
  HRESULT QUORVEL_CALL get_ConnectionString(BSTR* connectionString) noexcept override {
    return Deliver(connectionString, &RemarkContext::ConnectionString);
  }
  HRESULT QUORVEL_CALL CanUpdate(LONG i_lIndex, VARIANT_BOOL* granted) noexcept override {
    return Deliver(granted, [&](const RemarkContext& context) { return context.CanUpdate(i_lIndex); });
  }
  HRESULT QUORVEL_CALL CanDelete(LONG i_lIndex, VARIANT_BOOL* granted) noexcept override {
    return Deliver(granted, [&](const RemarkContext& context) { return context.CanDelete(i_lIndex); });
  }
  HRESULT QUORVEL_CALL CanCreate(LONG i_lIndex, VARIANT_BOOL* granted) noexcept override {
    return Deliver(granted, [&](const RemarkContext& context) { return context.CanCreate(i_lIndex); });
  }
  HRESULT QUORVEL_CALL Edit(BSTR i_sContextID, BSTR i_sOwnerID, BSTR i_sUserID) noexcept override {
    return Perform([&](RemarkContext& context) {
      context.Edit(com::FromBstr(i_sContextID), com::FromBstr(i_sOwnerID), com::FromBstr(i_sUserID));
    });
  }
  HRESULT QUORVEL_CALL Popup(BSTR i_sContextID, BSTR i_sOwnerID, BSTR i_sUserID) noexcept override {
    return Perform([&](RemarkContext& context) {
      context.Popup(com::FromBstr(i_sContextID), com::FromBstr(i_sOwnerID), com::FromBstr(i_sUserID));
    });
  }
  HRESULT QUORVEL_CALL Load(BSTR i_sContextID, BSTR i_sOwnerID, BSTR i_sUserID) noexcept override {
    return Perform([&](RemarkContext& context) {
      context.Load(com::FromBstr(i_sContextID), com::FromBstr(i_sOwnerID), com::FromBstr(i_sUserID));
    });
  }
  HRESULT QUORVEL_CALL Save(VARIANT_BOOL bForceSave) noexcept override {
    return Perform([&](RemarkContext& context) { context.Save(bForceSave != VARIANT_FALSE); });
  }
  HRESULT QUORVEL_CALL RefreshRemarkList() noexcept override { return Perform(&RemarkContext::RefreshRemarkList); }
  HRESULT QUORVEL_CALL Dispose() noexcept override { return Perform(&RemarkContext::Dispose); }
  HRESULT QUORVEL_CALL AddRemark(VARIANT* i_vRemarkTypeIndex, BSTR* i_sRemarkText, BSTR i_sUserID) noexcept override {
    return Perform([&](RemarkContext& context) {
      context.AddRemark(IndexOf(Required(i_vRemarkTypeIndex)), com::FromBstr(Required(i_sRemarkText)),
                        com::FromBstr(i_sUserID));
    });
  }
  HRESULT QUORVEL_CALL PopupMemos(VARIANT_BOOL i_bRefresh) noexcept override {
    return Perform([&](RemarkContext& context) { context.PopupMemos(i_bRefresh != VARIANT_FALSE); });
  }
  HRESULT QUORVEL_CALL EditMemos(VARIANT_BOOL i_bRefresh) noexcept override {
    return Perform([&](RemarkContext& context) { context.EditMemos(i_bRefresh != VARIANT_FALSE); });
  }
  HRESULT QUORVEL_CALL ViewManager(LONG i_lModal) noexcept override {
    return Perform([&](RemarkContext& context) { context.ViewManager(i_lModal); });
  }
  HRESULT QUORVEL_CALL get_Server(BSTR* server) noexcept override { return Deliver(server, &RemarkContext::Server); }
};

/// Describes the class to the rest of the library.
[[nodiscard]] const PublishedClass& RemarkContextClass() noexcept;

}  // namespace quorvel::published
