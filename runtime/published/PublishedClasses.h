#pragma once

#include <span>

#include "platform/com/Com.h"
#include "platform/com/Dispatch.h"

namespace quorvel::published {

using namespace Quorvel;

/// One class of the boundary, as registration, creation and calls by name need it.
struct PublishedClass {
  com::Name name;           ///< "RemarkContext"
  com::Name interfaceName;  ///< "_RemarkContext"
  const GUID& classId;
  const GUID& interfaceId;
  std::span<const com::Member> members;
  /// Makes a new object with one reference. Null when hosts may not create objects of the class. Throws.
  IDispatch* (*create)();
};

/// The four classes of the type library.
[[nodiscard]] std::span<const PublishedClass> PublishedClasses() noexcept;

/// The library's name and version in the registry and in programmatic identifiers ("Quorvel.RemarkContext").
inline constexpr com::Name kLibraryName = OLESTR("Quorvel");
inline constexpr WORD kLibraryMajor = 1;
inline constexpr WORD kLibraryMinor = 1;
inline constexpr LCID kLibraryLocale = 0x409;

}  // namespace quorvel::published
