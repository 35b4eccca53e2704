#pragma once

#include "platform/com/Com.h"

#ifdef _WIN32

#include <ocidl.h>

#include "platform/com/TypeLibrary.h"

namespace quorvel::com {

// The system's interfaces have no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Lets scripts and designers find the class of an object. IUnknown comes from the object that derives from it.
class ClassInformation : public IProvideClassInfo {
 public:
  explicit ClassInformation(REFCLSID classId) noexcept : m_classId(classId) {}

  HRESULT QUORVEL_CALL GetClassInfo(ITypeInfo** info) noexcept override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return TypeInfoOf(m_classId, info);
  }

 protected:
  ~ClassInformation() = default;
  /// The interface `riid`, or null.
  void* Find(REFIID riid) noexcept {
    return riid == IID_IProvideClassInfo ? static_cast<IProvideClassInfo*>(this) : nullptr;
  }

 private:
  const GUID& m_classId;
};

#pragma GCC diagnostic pop

}  // namespace quorvel::com

#else

namespace quorvel::com {

/// Other systems have no type information.
class ClassInformation {
 public:
  explicit ClassInformation(REFCLSID /*classId*/) noexcept {}

 protected:
  static void* Find(REFIID /*riid*/) noexcept { return nullptr; }
};

}  // namespace quorvel::com

#endif
