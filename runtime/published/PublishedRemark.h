#pragma once

#include <memory>

#include "runtime/published/PublishedObject.h"

namespace quorvel::published {

/// A Remark as hosts see it.
class PublishedRemark final : public PublishedObject<_Remark, Remark> {
 public:
  using PublishedObject::PublishedObject;

  HRESULT QUORVEL_CALL get_RemarkType(_RemarkType** type) noexcept override {
    return Deliver(type, &Remark::RemarkType);
  }
  HRESULT QUORVEL_CALL putref_RemarkType(_RemarkType* type) noexcept override {
    return Perform([&](Remark& remark) { remark.SetRemarkType(Unpublish(type)); });
  }
  HRESULT QUORVEL_CALL get_MemoKey(LONG* key) noexcept override { return Deliver(key, &Remark::MemoKey); }
  HRESULT QUORVEL_CALL put_MemoKey(LONG key) noexcept override {
    return Perform([&](Remark& remark) { remark.SetMemoKey(key); });
  }
  HRESULT QUORVEL_CALL get_OwnerKey(LONG* key) noexcept override { return Deliver(key, &Remark::OwnerKey); }
  HRESULT QUORVEL_CALL get_EntityKey(LONG* key) noexcept override { return Deliver(key, &Remark::EntityKey); }
  HRESULT QUORVEL_CALL get_TypeID(BSTR* typeID) noexcept override { return Deliver(typeID, &Remark::TypeID); }
  HRESULT QUORVEL_CALL get_TypeCaption(BSTR* caption) noexcept override {
    return Deliver(caption, &Remark::TypeCaption);
  }
  HRESULT QUORVEL_CALL get_ShowPopup(VARIANT_BOOL* showPopup) noexcept override {
    return Deliver(showPopup, &Remark::ShowPopup);
  }
  HRESULT QUORVEL_CALL get_DateStamp(DATE* dateStamp) noexcept override {
    return Deliver(dateStamp, &Remark::DateStamp);
  }
  HRESULT QUORVEL_CALL put_DateStamp(DATE dateStamp) noexcept override {
    return Perform([&](Remark& remark) { remark.SetDateStamp(com::FromDate(dateStamp)); });
  }
  HRESULT QUORVEL_CALL get_UserID(BSTR* userID) noexcept override { return Deliver(userID, &Remark::UserID); }
  HRESULT QUORVEL_CALL put_UserID(BSTR userID) noexcept override {
    return Perform([&](Remark& remark) { remark.SetUserID(com::FromBstr(userID)); });
  }
  HRESULT QUORVEL_CALL get_MemoText(BSTR* text) noexcept override { return Deliver(text, &Remark::MemoText); }
  HRESULT QUORVEL_CALL put_MemoText(BSTR text) noexcept override {
    return Perform([&](Remark& remark) { remark.SetMemoText(com::FromBstr(text)); });
  }
  HRESULT QUORVEL_CALL get_Dirty(VARIANT_BOOL* dirty) noexcept override { return Deliver(dirty, &Remark::Dirty); }
  HRESULT QUORVEL_CALL put_Dirty(VARIANT_BOOL dirty) noexcept override {
    return Perform([&](Remark& remark) { remark.SetDirty(dirty != VARIANT_FALSE); });
  }
  HRESULT QUORVEL_CALL Commit() noexcept override { return Perform(&Remark::Commit); }
  HRESULT QUORVEL_CALL Delete() noexcept override { return Perform(&Remark::Delete); }
};

/// Describes the class to the rest of the library.
[[nodiscard]] const PublishedClass& RemarkClass() noexcept;

}  // namespace quorvel::published
