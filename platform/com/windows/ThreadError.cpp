#include "platform/com/ThreadError.h"

#include "platform/com/Text.h"

namespace quorvel::com {
namespace {

/// Owns a BSTR.
struct TextTraits {
  using Type = BSTR;
  static BSTR Invalid() noexcept { return nullptr; }
  static void Close(BSTR text) noexcept { ::SysFreeString(text); }
};
using OwnedText = UniqueHandle<TextTraits>;

}  // namespace

Pointer<IErrorInfo> MakeErrorInfo(REFIID interfaceId, std::string_view source, std::string_view description) noexcept {
  // The system's object, not one of ours: the system may keep it after this library has been unloaded.
  Pointer<ICreateErrorInfo> error;
  if (FAILED(::CreateErrorInfo(error.Put()))) return {};
  try {
    const OwnedText wideSource(ToBstr(source));
    const OwnedText wideDescription(ToBstr(description));
    error->SetGUID(interfaceId);
    error->SetSource(wideSource.Get());
    error->SetDescription(wideDescription.Get());
  } catch (...) {
    return {};
  }
  return Query<IErrorInfo>(error.Get(), IID_IErrorInfo);
}

void SetThreadError(IErrorInfo* error) noexcept { ::SetErrorInfo(0, error); }

Pointer<IErrorInfo> TakeThreadError() noexcept {
  Pointer<IErrorInfo> error;
  ::GetErrorInfo(0, error.Put());
  return error;
}

}  // namespace quorvel::com
