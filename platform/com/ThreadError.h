#pragma once

#include <string_view>

#include "platform/com/Com.h"
#include "platform/com/Pointer.h"

/// The error object of the current thread. The operating system keeps it on Windows, the component elsewhere.
namespace quorvel::com {

/// A new error object with texts in UTF-8. Null when there is no memory.
[[nodiscard]] Pointer<IErrorInfo> MakeErrorInfo(REFIID interfaceId, std::string_view source,
                                                std::string_view description) noexcept;

/// Replaces the thread's error object; null removes it.
void SetThreadError(IErrorInfo* error) noexcept;

/// Removes and returns the thread's error object; null when there is none.
[[nodiscard]] Pointer<IErrorInfo> TakeThreadError() noexcept;

}  // namespace quorvel::com
