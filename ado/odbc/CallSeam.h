#pragma once

#include <string_view>

namespace quorvel::ado::odbc {

/// What a test puts between the engine and the driver manager, to see every ODBC call and to let some fail.
class CallObserver {
 public:
  virtual ~CallObserver() = default;

  /// Asked before each call. False: the call is not made and the engine finds SQL_ERROR as its result; a call
  /// that gives something back to the driver (SQLFreeHandle, SQLDisconnect) is made all the same.
  virtual bool Allows(std::string_view function) = 0;
};

/// Puts an observer in force for the calling thread and returns the former one; null is none.
CallObserver* Observe(CallObserver* observer) noexcept;

/// For the engine: whether the observer in force, if any, lets this call pass.
[[nodiscard]] bool MayCall(const char* function);

}  // namespace quorvel::ado::odbc
