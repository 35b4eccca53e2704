#pragma once

#include "ado/odbc/Diagnostics.h"
#include "ado/odbc/OdbcApi.h"
#include "platform/UniqueHandle.h"

namespace quorvel::ado::odbc {

template <SQLSMALLINT HandleType>
struct HandleTraits {
  using Type = SQLHANDLE;
  static Type Invalid() noexcept { return SQL_NULL_HANDLE; }
  static void Close(Type handle) noexcept {
    // A driver manager does not free a handle that is still connected.
    if constexpr (HandleType == SQL_HANDLE_DBC) api::Disconnect.Release(handle);
    api::FreeHandle.Release(HandleType, handle);
  }
};

using EnvironmentHandle = UniqueHandle<HandleTraits<SQL_HANDLE_ENV>>;
using ConnectionHandle = UniqueHandle<HandleTraits<SQL_HANDLE_DBC>>;
using StatementHandle = UniqueHandle<HandleTraits<SQL_HANDLE_STMT>>;

/// Calls `function` on `handle`, its first argument. DriverError with every record when it fails; SQL_NO_DATA is
/// not a failure.
template <auto Function, typename... Arguments>
SQLRETURN Require(const Api<Function>& function, SQLSMALLINT handleType, SQLHANDLE handle, Arguments... arguments) {
  const SQLRETURN code = function(handle, arguments...);
  if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) throw FailureOf(handleType, handle, function.Name());
  return code;
}

/// An ODBC 3 environment.
[[nodiscard]] EnvironmentHandle MakeEnvironment();
[[nodiscard]] ConnectionHandle MakeConnection(const EnvironmentHandle& environment);
[[nodiscard]] StatementHandle MakeStatement(SQLHDBC connection);

}  // namespace quorvel::ado::odbc
