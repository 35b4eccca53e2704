#pragma once

#include <atomic>

#include "platform/com/Com.h"
#include "platform/com/ServerLock.h"

namespace quorvel::com {

// Interfaces have no destructor; only Release deletes an object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Adds reference counting to `Interfaces`, one interface or a class that derives from several. The object starts with
/// one reference, the last Release deletes it, and it keeps the library loaded.
template <typename Interfaces>
class Counted : public Interfaces {
 public:
  using Interfaces::Interfaces;
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  virtual ~Counted() = default;

  ULONG QUORVEL_CALL AddRef() noexcept override { return m_references.fetch_add(1, std::memory_order_relaxed) + 1; }
  ULONG QUORVEL_CALL Release() noexcept override {
    const ULONG left = m_references.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (left == 0) delete this;
    return left;
  }

 private:
  ServerLock m_lock;
  std::atomic<ULONG> m_references = 1;
};

/// An object with one interface besides IUnknown.
template <typename Interface>
class Object : public Counted<Interface> {
 public:
  explicit Object(REFIID interfaceId) noexcept : m_interface(interfaceId) {}

  HRESULT QUORVEL_CALL QueryInterface(REFIID riid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (riid != IID_IUnknown && riid != m_interface) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    this->AddRef();
    return S_OK;
  }

 private:
  const GUID& m_interface;
};

#pragma GCC diagnostic pop

}  // namespace quorvel::com
