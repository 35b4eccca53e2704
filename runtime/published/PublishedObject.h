#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/DateTime.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/Value.h"
#include "platform/com/CallGuard.h"
#include "platform/com/ClassInformation.h"
#include "platform/com/Date.h"
#include "platform/com/Dispatch.h"
#include "platform/com/Object.h"
#include "platform/com/Pointer.h"
#include "platform/com/Text.h"
#include "platform/com/TypeLibrary.h"
#include "platform/com/Variant.h"
#include "runtime/published/Publish.h"
#include "runtime/published/PublishedClasses.h"

namespace quorvel::published {

/// Values of the runtime in the types of the boundary.
[[nodiscard]] inline LONG ToHost(std::int32_t number) { return number; }
[[nodiscard]] inline VARIANT_BOOL ToHost(bool flag) { return flag ? VARIANT_TRUE : VARIANT_FALSE; }
[[nodiscard]] inline BSTR ToHost(const std::string& text) { return com::ToBstr(text); }
[[nodiscard]] inline DATE ToHost(DateTime date) { return com::ToDate(date); }
[[nodiscard]] inline IUnknown* ToHost(IUnknown* object) { return object; }
template <typename Object>
[[nodiscard]] auto ToHost(const std::shared_ptr<Object>& object) {
  return Publish(object);
}

/// An argument by reference. Error E_POINTER when the host passed a null pointer.
template <typename T>
[[nodiscard]] T& Required(T* argument) {
  if (argument == nullptr) {
    throw Error(E_POINTER, std::string(kApplicationName),
                "A null pointer was passed where a value by reference belongs");
  }
  return *argument;
}

/// The position or key that a host looks something up by. A value that cannot be either finds nothing, as NULL does.
[[nodiscard]] inline Value IndexOf(const VARIANT& indexKey) {
  try {
    return com::ToValue(indexKey);
  } catch (const Error&) {
    return Null{};
  }
}

// Interfaces have no destructor; only Release deletes an object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The interfaces of a published object: its own, which comes first, and those that every one has.
template <typename Interface>
class PublishedInterfaces : public Interface, public ISupportErrorInfo, public com::ClassInformation {
 public:
  explicit PublishedInterfaces(REFCLSID classId) noexcept : com::ClassInformation(classId) {}
};

/// The common part of the four published classes: IUnknown, IDispatch over the class's member table, and the error
/// handling around each operation's one line, which receives the runtime object. A runtime object has at most one
/// published object. An operation keeps the runtime object alive, because the call may release the last reference to
/// the published one.
///
/// The thread that made the object releases it. QueryInterface for the class identifier, which no interface has,
/// returns the object itself: this distinguishes objects of this component from all others.
template <typename Interface, typename Object>
class PublishedObject : public com::Counted<PublishedInterfaces<Interface>> {
 public:
  PublishedObject(const PublishedClass& description, std::shared_ptr<Object> object) noexcept
      : com::Counted<PublishedInterfaces<Interface>>(description.classId),
        m_class(description),
        m_object(std::move(object)) {
    m_object->SetPublished(this);
  }
  PublishedObject(const PublishedObject&) = delete;
  PublishedObject& operator=(const PublishedObject&) = delete;
  ~PublishedObject() override { m_object->SetPublished(nullptr); }

  using Base = PublishedObject;
  using PublishedInterface = Interface;

  [[nodiscard]] const std::shared_ptr<Object>& RuntimeObject() const noexcept { return m_object; }

  HRESULT QUORVEL_CALL QueryInterface(REFIID riid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = Find(riid);
    if (*object == nullptr) return E_NOINTERFACE;
    this->AddRef();
    return S_OK;
  }

  HRESULT QUORVEL_CALL GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = com::TypeInfoCount();
    return S_OK;
  }
  HRESULT QUORVEL_CALL GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) noexcept override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return index == 0 ? com::TypeInfoOf(m_class.interfaceId, info) : DISP_E_BADINDEX;
  }
  HRESULT QUORVEL_CALL GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID /*locale*/,
                                     DISPID* ids) noexcept override {
    return com::FindNames(m_class.members, riid, names, count, ids);
  }
  HRESULT QUORVEL_CALL Invoke(DISPID member, REFIID riid, LCID locale, WORD flags, DISPPARAMS* arguments,
                              VARIANT* result, EXCEPINFO* exception, UINT* argumentInError) noexcept override {
    return com::InvokeMember(*this, m_class.members, member, riid, locale, flags, arguments, result, exception,
                             argumentInError);
  }

  HRESULT QUORVEL_CALL InterfaceSupportsErrorInfo(REFIID riid) noexcept override {
    return riid == m_class.interfaceId ? S_OK : S_FALSE;
  }

 protected:
  /// The body of an operation that delivers the result of `read`.
  template <typename Result, typename Read>
  [[nodiscard]] HRESULT Deliver(Result* result, Read read) const noexcept {
    return com::Guarded(m_class.interfaceId, [&, object = KeptFor(read)] {
      Result& target = Required(result);
      target = {};
      target = static_cast<Result>(ToHost(std::invoke(read, *object)));
    });
  }
  /// The body of an operation without a result.
  template <typename Work>
  [[nodiscard]] HRESULT Perform(Work work) const noexcept {
    return com::Guarded(m_class.interfaceId, [&, object = m_object] { std::invoke(work, *object); });
  }

 private:
  /// The runtime object, held for a call that may run the host's code. A getter that cannot fail runs none.
  template <typename Read>
  [[nodiscard]] auto KeptFor(const Read& /*read*/) const noexcept {
    if constexpr (std::is_nothrow_invocable_v<Read, Object&>) {
      return m_object.get();
    } else {
      return m_object;
    }
  }

  void* Find(REFIID riid) noexcept {
    if (riid == IID_IUnknown || riid == IID_IDispatch || riid == m_class.interfaceId || riid == m_class.classId) {
      return static_cast<Interface*>(this);
    }
    if (riid == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    return com::ClassInformation::Find(riid);
  }

  const PublishedClass& m_class;
  std::shared_ptr<Object> m_object;
};

#pragma GCC diagnostic pop

/// The published object of a runtime object, made when there is none yet.
template <typename Class, typename Object>
[[nodiscard]] Class* PublishAs(const PublishedClass& description, const std::shared_ptr<Object>& object) {
  if (!object) return nullptr;
  if (object->Published() == nullptr) return new Class(description, object);
  auto* published = static_cast<typename Class::Base*>(object->Published());
  published->AddRef();
  return static_cast<Class*>(published);
}

/// The runtime object of a host's object of the class; error 13 for any other object.
template <typename Class, typename Object>
[[nodiscard]] std::shared_ptr<Object> UnpublishAs(const PublishedClass& description, IUnknown* object) {
  if (object == nullptr) return nullptr;
  const auto own = com::Query<IUnknown>(object, description.classId);
  // A foreign object may answer to every identifier; ours do not answer to the null one.
  if (own && !com::Query<IUnknown>(object, IID_NULL)) {
    auto* published = static_cast<typename Class::PublishedInterface*>(own.Get());
    return static_cast<typename Class::Base*>(published)->RuntimeObject();
  }
  throw Error(
      ErrorNumber::TypeMismatch, std::string(kApplicationName),
      fmt::format("This object is no {0} of this component, or it belongs to another thread: pass a {0} that the "
                  "component gave",
                  com::FromWide(description.name)));
}

}  // namespace quorvel::published
