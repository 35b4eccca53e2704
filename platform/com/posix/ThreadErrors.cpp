#include "platform/com/ThreadErrors.h"

#include "platform/com/Object.h"
#include "platform/com/ThreadError.h"

namespace quorvel::com {
namespace {

class ThreadErrors final : public Object<IThreadErrors> {
 public:
  ThreadErrors() noexcept : Object(IID_IThreadErrors) {}

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

IThreadErrors* MakeThreadErrors() { return new ThreadErrors(); }

}  // namespace quorvel::com
