#pragma once

#include <memory>

#include "runtime/published/PublishedObject.h"

namespace quorvel::published {

/// A RemarkType as hosts see it.
class PublishedRemarkType final : public PublishedObject<_RemarkType, RemarkType> {
 public:
  using PublishedObject::PublishedObject;

  HRESULT QUORVEL_CALL get_Context(_RemarkContext** context) noexcept override {
    return Deliver(context, &RemarkType::Context);
  }
  HRESULT QUORVEL_CALL putref_Context(_RemarkContext* context) noexcept override {
    return Perform([&](RemarkType& type) { type.SetContext(Unpublish(context)); });
  }
  HRESULT QUORVEL_CALL get_TypeID(BSTR* typeID) noexcept override { return Deliver(typeID, &RemarkType::TypeID); }
  HRESULT QUORVEL_CALL put_TypeID(BSTR typeID) noexcept override {
    return Perform([&](RemarkType& type) { type.SetTypeID(com::FromBstr(typeID)); });
  }
  HRESULT QUORVEL_CALL get_Caption(BSTR* caption) noexcept override { return Deliver(caption, &RemarkType::Caption); }
  HRESULT QUORVEL_CALL put_Caption(BSTR caption) noexcept override {
    return Perform([&](RemarkType& type) { type.SetCaption(com::FromBstr(caption)); });
  }
  HRESULT QUORVEL_CALL get_ShowPopup(VARIANT_BOOL* showPopup) noexcept override {
    return Deliver(showPopup, &RemarkType::ShowPopup);
  }
  HRESULT QUORVEL_CALL put_ShowPopup(VARIANT_BOOL showPopup) noexcept override {
    return Perform([&](RemarkType& type) { type.SetShowPopup(showPopup != VARIANT_FALSE); });
  }
  HRESULT QUORVEL_CALL get_CanCreate(LONG* right) noexcept override { return Deliver(right, &RemarkType::CanCreate); }
  HRESULT QUORVEL_CALL put_CanCreate(LONG right) noexcept override {
    return Perform([&](RemarkType& type) { type.SetCanCreate(right); });
  }
  HRESULT QUORVEL_CALL get_CanRead(LONG* right) noexcept override { return Deliver(right, &RemarkType::CanRead); }
  HRESULT QUORVEL_CALL put_CanRead(LONG right) noexcept override {
    return Perform([&](RemarkType& type) { type.SetCanRead(right); });
  }
  HRESULT QUORVEL_CALL get_CanUpdate(LONG* right) noexcept override { return Deliver(right, &RemarkType::CanUpdate); }
  HRESULT QUORVEL_CALL put_CanUpdate(LONG right) noexcept override {
    return Perform([&](RemarkType& type) { type.SetCanUpdate(right); });
  }
  HRESULT QUORVEL_CALL get_CanDelete(LONG* right) noexcept override { return Deliver(right, &RemarkType::CanDelete); }
  HRESULT QUORVEL_CALL put_CanDelete(LONG right) noexcept override {
    return Perform([&](RemarkType& type) { type.SetCanDelete(right); });
  }
};

/// Describes the class to the rest of the library.
[[nodiscard]] const PublishedClass& RemarkTypeClass() noexcept;

}  // namespace quorvel::published
