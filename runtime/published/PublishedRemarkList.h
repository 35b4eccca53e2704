#pragma once

#include <memory>

#include "runtime/published/PublishedObject.h"

namespace quorvel::published {

/// A RemarkList as hosts see it.
class PublishedRemarkList final : public PublishedObject<_RemarkList, RemarkList> {
 public:
  using PublishedObject::PublishedObject;

  HRESULT QUORVEL_CALL get_NewEnum(IUnknown** enumerator) noexcept override;
  HRESULT QUORVEL_CALL get_Item(VARIANT* i_vIndexKey, _Remark** remark) noexcept override {
    return Deliver(remark, [&](const RemarkList& list) { return list.Item(IndexOf(Required(i_vIndexKey))); });
  }
  HRESULT QUORVEL_CALL get_Count(LONG* count) noexcept override { return Deliver(count, &RemarkList::Count); }
  HRESULT QUORVEL_CALL get_PopupCount(LONG* count) noexcept override { return Deliver(count, &RemarkList::PopupCount); }
  HRESULT QUORVEL_CALL get_Dirty(VARIANT_BOOL* dirty) noexcept override { return Deliver(dirty, &RemarkList::Dirty); }
  HRESULT QUORVEL_CALL Index(_Remark** i_oRemark, LONG* position) noexcept override {
    return Deliver(position, [&](const RemarkList& list) { return list.Index(Unpublish(Required(i_oRemark))); });
  }
  HRESULT QUORVEL_CALL Backup() noexcept override { return Perform(&RemarkList::Backup); }
  HRESULT QUORVEL_CALL Restore() noexcept override { return Perform(&RemarkList::Restore); }
  HRESULT QUORVEL_CALL Add(_Remark** remark) noexcept override { return Deliver(remark, &RemarkList::Add); }
  HRESULT QUORVEL_CALL AddRemark(_Remark** i_oRemark) noexcept override {
    return Perform([&](RemarkList& list) { list.AddRemark(Unpublish(Required(i_oRemark))); });
  }
  HRESULT QUORVEL_CALL Save() noexcept override { return Perform(&RemarkList::Save); }
  HRESULT QUORVEL_CALL Remove(VARIANT* i_vIndexKey) noexcept override {
    return Perform([&](RemarkList& list) { list.Remove(com::ToValue(Required(i_vIndexKey))); });
  }
  HRESULT QUORVEL_CALL Clear(VARIANT_BOOL i_bRecreateCollection) noexcept override {
    return Perform([&](RemarkList& list) { list.Clear(i_bRecreateCollection != VARIANT_FALSE); });
  }
};

/// Describes the class to the rest of the library.
[[nodiscard]] const PublishedClass& RemarkListClass() noexcept;

}  // namespace quorvel::published
