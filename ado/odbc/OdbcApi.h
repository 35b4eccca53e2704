#pragma once

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "ado/odbc/CallSeam.h"

/// The ODBC functions that the engine uses, in their wide form where there is one. The engine calls them only by these
/// names, so that every call passes the seam. For this folder alone.
namespace quorvel::ado::odbc {

template <auto Function>
class Api {
 public:
  consteval explicit Api(const char* name) : m_name(name) {}

  [[nodiscard]] constexpr const char* Name() const noexcept { return m_name; }

  template <typename... Arguments>
  SQLRETURN operator()(Arguments... arguments) const {
    return MayCall(m_name) ? Function(arguments...) : SQLRETURN{SQL_ERROR};
  }

  /// A call that releases something is made even when the observer refuses it.
  template <typename... Arguments>
  void Release(Arguments... arguments) const noexcept {
    (void)MayCall(m_name);
    (void)Function(arguments...);
  }

 private:
  const char* m_name;
};

namespace api {

inline constexpr Api<SQLAllocHandle> AllocHandle{"SQLAllocHandle"};
inline constexpr Api<SQLBindCol> BindCol{"SQLBindCol"};
inline constexpr Api<SQLBindParameter> BindParameter{"SQLBindParameter"};
inline constexpr Api<SQLDescribeColW> DescribeCol{"SQLDescribeCol"};
inline constexpr Api<SQLDisconnect> Disconnect{"SQLDisconnect"};
inline constexpr Api<SQLDriverConnectW> DriverConnect{"SQLDriverConnect"};
inline constexpr Api<SQLDriversW> Drivers{"SQLDrivers"};
inline constexpr Api<SQLExecDirectW> ExecDirect{"SQLExecDirect"};
inline constexpr Api<SQLFetch> Fetch{"SQLFetch"};
inline constexpr Api<SQLFreeHandle> FreeHandle{"SQLFreeHandle"};
inline constexpr Api<SQLFreeStmt> FreeStmt{"SQLFreeStmt"};
inline constexpr Api<SQLGetConnectAttrW> GetConnectAttr{"SQLGetConnectAttr"};
inline constexpr Api<SQLGetData> GetData{"SQLGetData"};
inline constexpr Api<SQLGetDiagFieldW> GetDiagField{"SQLGetDiagField"};
inline constexpr Api<SQLGetDiagRecW> GetDiagRec{"SQLGetDiagRec"};
inline constexpr Api<SQLGetInfoW> GetInfo{"SQLGetInfo"};
inline constexpr Api<SQLMoreResults> MoreResults{"SQLMoreResults"};
inline constexpr Api<SQLNumResultCols> NumResultCols{"SQLNumResultCols"};
inline constexpr Api<SQLProcedureColumnsW> ProcedureColumns{"SQLProcedureColumns"};
inline constexpr Api<SQLProceduresW> Procedures{"SQLProcedures"};
inline constexpr Api<SQLSetConnectAttrW> SetConnectAttr{"SQLSetConnectAttr"};
inline constexpr Api<SQLSetEnvAttr> SetEnvAttr{"SQLSetEnvAttr"};
inline constexpr Api<SQLSetStmtAttrW> SetStmtAttr{"SQLSetStmtAttr"};

}  // namespace api

/// Reads the number that a driver wrote into a buffer of bytes.
template <typename Number>
[[nodiscard]] Number ReadAs(const std::byte* bytes) noexcept {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

/// ODBC takes small integers in the place of pointers.
[[nodiscard]] inline SQLPOINTER AsPointer(SQLULEN number) noexcept {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

/// A timeout as ODBC takes it; 0 means no limit.
[[nodiscard]] inline SQLPOINTER AsPointer(std::chrono::seconds timeout) noexcept {
  constexpr std::chrono::seconds kLongest{std::numeric_limits<std::int32_t>::max()};
  return AsPointer(static_cast<SQLULEN>(std::clamp(timeout, std::chrono::seconds{0}, kLongest).count()));
}

}  // namespace quorvel::ado::odbc
