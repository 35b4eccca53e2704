#include "platform/com/HostErrorAccess.h"

#include "platform/com/Object.h"
#include "platform/com/ThreadError.h"

namespace quorvel::com {
namespace {

class HostErrorAccess final : public Object<IThreadErrors> {
 public:
  HostErrorAccess() noexcept : Object(IID_IThreadErrors) {}

  HRESULT SetErrorInfo(IErrorInfo* error) noexcept override {
    SetThreadError(error);
    return S_OK;
  }
  HRESULT GetErrorInfo(IErrorInfo** error) noexcept override {
    if (error == nullptr) return E_POINTER;
    *error = TakeThreadError().Release();
    return *error != nullptr ? S_OK : S_FALSE;
  }
};

}  // namespace

IThreadErrors* MakeHostErrorAccess() { return new HostErrorAccess(); }

}  // namespace quorvel::com
