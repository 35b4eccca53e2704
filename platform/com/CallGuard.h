#pragma once

#include <utility>

#include "platform/com/Com.h"

namespace quorvel::com {

/// Removes the thread's error object, as every operation does first.
void ClearError() noexcept;

/// Turns the current exception into an HRESULT and the thread's error object; for catch blocks only. A number of the
/// language runtime (1 to 65535) becomes 0x800A0000 + number, a negative number stays, and any other exception becomes
/// E_OUTOFMEMORY or E_UNEXPECTED with its message.
[[nodiscard]] HRESULT ToHResult(REFIID interfaceId) noexcept;

/// Runs `work` as the body of an operation; no exception leaves it.
template <typename Work>
[[nodiscard]] HRESULT Guarded(REFIID interfaceId, Work&& work) noexcept {
  ClearError();
  try {
    std::forward<Work>(work)();
    return S_OK;
  } catch (...) {
    return ToHResult(interfaceId);
  }
}

/// Moves the thread's error object into the EXCEPINFO of a call by name; `exception` may be null.
void TakeError(HRESULT result, EXCEPINFO* exception) noexcept;

}  // namespace quorvel::com
