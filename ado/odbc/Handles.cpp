#include "ado/odbc/Handles.h"

namespace quorvel::ado::odbc {
namespace {

template <SQLSMALLINT HandleType>
UniqueHandle<HandleTraits<HandleType>> MakeBelow(SQLSMALLINT parentType, SQLHANDLE parent) {
  UniqueHandle<HandleTraits<HandleType>> handle;
  const SQLRETURN code = api::AllocHandle(HandleType, parent, handle.Put());
  if (!SQL_SUCCEEDED(code)) throw FailureOf(parentType, parent, api::AllocHandle.Name());
  return handle;
}

}  // namespace

EnvironmentHandle MakeEnvironment() {
  auto environment = MakeBelow<SQL_HANDLE_ENV>(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
  Require(api::SetEnvAttr, SQL_HANDLE_ENV, environment.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3),
          SQLINTEGER{0});
  return environment;
}

ConnectionHandle MakeConnection(const EnvironmentHandle& environment) {
  return MakeBelow<SQL_HANDLE_DBC>(SQL_HANDLE_ENV, environment.Get());
}

StatementHandle MakeStatement(SQLHDBC connection) { return MakeBelow<SQL_HANDLE_STMT>(SQL_HANDLE_DBC, connection); }

}  // namespace quorvel::ado::odbc
