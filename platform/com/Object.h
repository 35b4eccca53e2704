#pragma once

#include <atomic>

#include "platform/com/Com.h"
#include "platform/com/ServerLock.h"

namespace quorvel::com {

/// The references of an object, which begins with one.
class ReferenceCount {
 public:
  ULONG Add() noexcept { return m_count.fetch_add(1, std::memory_order_relaxed) + 1; }
  /// Whoever gets 0 deletes the object.
  ULONG Remove() noexcept { return m_count.fetch_sub(1, std::memory_order_acq_rel) - 1; }

 private:
  std::atomic<ULONG> m_count = 1;
};

// Interfaces have no destructor; objects are deleted by their own Release only.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object with one interface besides IUnknown. It keeps the library loaded.
template <typename Interface>
class Object : public Interface {
 public:
  explicit Object(REFIID interfaceId) noexcept : m_interface(interfaceId) {}
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  HRESULT QUORVEL_CALL QueryInterface(REFIID riid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (riid != IID_IUnknown && riid != m_interface) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    m_references.Add();
    return S_OK;
  }
  ULONG QUORVEL_CALL AddRef() noexcept override { return m_references.Add(); }
  ULONG QUORVEL_CALL Release() noexcept override {
    const ULONG left = m_references.Remove();
    if (left == 0) delete this;
    return left;
  }

 private:
  const GUID& m_interface;
  ReferenceCount m_references;
  ServerLock m_lock;
};

#pragma GCC diagnostic pop

}  // namespace quorvel::com
