#pragma once

#include <string_view>

namespace quorvel::ado::odbc {

/// A test's observer between the engine and the driver manager: it sees every ODBC call and can make a call fail.
class CallObserver {
 public:
  virtual ~CallObserver() = default;

  /// Asked before each call. After false the call is not made and the engine gets SQL_ERROR; a call that releases
  /// something (SQLFreeHandle, SQLDisconnect) is made nevertheless.
  virtual bool Allows(std::string_view function) = 0;
};

/// Installs `observer` for the calling thread and returns the previous one; null means none.
CallObserver* Observe(CallObserver* observer) noexcept;

/// For the engine: whether the current observer, if any, allows this call.
[[nodiscard]] bool MayCall(const char* function);

}  // namespace quorvel::ado::odbc
