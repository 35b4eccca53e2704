#pragma once

#include <quorvel/quorvel.h>

#include <memory>

#include "platform/com/Members.h"
#include "runtime/Remark.h"
#include "runtime/RemarkContext.h"
#include "runtime/RemarkList.h"
#include "runtime/RemarkType.h"

namespace quorvel::com {

template <>
inline constexpr const GUID* kInterfaceId<_RemarkType> = &IID__RemarkType;
template <>
inline constexpr const GUID* kInterfaceId<_Remark> = &IID__Remark;
template <>
inline constexpr const GUID* kInterfaceId<_RemarkContext> = &IID__RemarkContext;
template <>
inline constexpr const GUID* kInterfaceId<_RemarkList> = &IID__RemarkList;

}  // namespace quorvel::com

/// Converts the runtime's objects to those of the boundary and back.
namespace quorvel::published {

using namespace Quorvel;

/// The one published object of a runtime object, with a reference for the caller; null for null. Throws
/// std::bad_alloc.
[[nodiscard]] _RemarkType* Publish(const std::shared_ptr<RemarkType>& type);
[[nodiscard]] _Remark* Publish(const std::shared_ptr<Remark>& remark);
[[nodiscard]] _RemarkContext* Publish(const std::shared_ptr<RemarkContext>& context);
[[nodiscard]] _RemarkList* Publish(const std::shared_ptr<RemarkList>& list);

/// The runtime object of an object that a host passed; null for null. Error 13 for an object that is not from this
/// component.
[[nodiscard]] std::shared_ptr<RemarkType> Unpublish(_RemarkType* type);
[[nodiscard]] std::shared_ptr<Remark> Unpublish(_Remark* remark);
[[nodiscard]] std::shared_ptr<RemarkContext> Unpublish(_RemarkContext* context);

}  // namespace quorvel::published
