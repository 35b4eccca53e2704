#include "platform/com/ThreadError.h"

#include <string>
#include <utility>

#include "platform/com/Object.h"
#include "platform/com/Text.h"

namespace quorvel::com {
namespace {

class ErrorInfo final : public Object<IErrorInfo> {
 public:
  ErrorInfo(REFIID interfaceId, std::string_view source, std::string_view description)
      : Object(IID_IErrorInfo), m_interfaceId(interfaceId), m_source(source), m_description(description) {}

  HRESULT GetGUID(GUID* interfaceId) noexcept override {
    if (interfaceId == nullptr) return E_POINTER;
    *interfaceId = m_interfaceId;
    return S_OK;
  }
  HRESULT GetSource(BSTR* source) noexcept override { return Deliver(m_source, source); }
  HRESULT GetDescription(BSTR* description) noexcept override { return Deliver(m_description, description); }
  HRESULT GetHelpFile(BSTR* file) noexcept override {
    if (file == nullptr) return E_POINTER;
    *file = nullptr;
    return S_OK;
  }
  HRESULT GetHelpContext(DWORD* context) noexcept override {
    if (context == nullptr) return E_POINTER;
    *context = 0;
    return S_OK;
  }

 private:
  static HRESULT Deliver(const std::string& text, BSTR* target) noexcept {
    if (target == nullptr) return E_POINTER;
    *target = nullptr;
    try {
      *target = ToBstr(text);
      return S_OK;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  GUID m_interfaceId;
  std::string m_source;
  std::string m_description;
};

// Every operation looks here first, so the variable has neither constructor nor destructor: access to it is one load.
constinit thread_local IErrorInfo* threadError = nullptr;

/// Releases the error object of a thread that ends.
struct AtThreadEnd {
  ~AtThreadEnd() {
    if (threadError != nullptr) std::exchange(threadError, nullptr)->Release();
  }
};

}  // namespace

Pointer<IErrorInfo> MakeErrorInfo(REFIID interfaceId, std::string_view source, std::string_view description) noexcept {
  try {
    return Pointer<IErrorInfo>(new ErrorInfo(interfaceId, source, description));
  } catch (...) {
    return {};
  }
}

void SetThreadError(IErrorInfo* error) noexcept {
  if (error == nullptr && threadError == nullptr) return;
  thread_local const AtThreadEnd releases;
  if (error != nullptr) error->AddRef();
  if (IErrorInfo* former = std::exchange(threadError, error)) former->Release();
}

Pointer<IErrorInfo> TakeThreadError() noexcept { return Pointer<IErrorInfo>(std::exchange(threadError, nullptr)); }

}  // namespace quorvel::com
