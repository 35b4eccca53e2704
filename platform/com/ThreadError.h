#pragma once

#include <string_view>

#include "platform/com/Com.h"
#include "platform/com/Pointer.h"

/// The error object of a thread, which is the operating system's on Windows and the component's own elsewhere.
namespace quorvel::com {

/// A new error object. Null when memory ran out. Texts are UTF-8.
[[nodiscard]] Pointer<IErrorInfo> MakeErrorInfo(REFIID interfaceId, std::string_view source,
                                                std::string_view description) noexcept;

/// Replaces the thread's error object; null takes it away.
void SetThreadError(IErrorInfo* error) noexcept;

/// Takes the thread's error object; null when there is none.
[[nodiscard]] Pointer<IErrorInfo> TakeThreadError() noexcept;

}  // namespace quorvel::com
