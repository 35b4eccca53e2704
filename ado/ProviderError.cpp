#include "ado/ProviderError.h"

#include "platform/Error.h"

namespace quorvel::ado {

ProviderError MakeProviderError(const Diagnostic& record, std::string_view source) {
  return {NumberOfSqlState(record.sqlState),
          record.message,
          std::string(source),
          record.sqlState,
          record.nativeError,
          record.line};
}

std::int32_t NumberOfSqlState(std::string_view sqlState) noexcept {
  if (sqlState == "42S02") return ErrorNumber::DbObjectNotFound;
  if (sqlState.starts_with("42")) return ErrorNumber::DbStatement;
  if (sqlState.starts_with("23")) return ErrorNumber::DbIntegrity;
  if (sqlState == "HYT00") return ErrorNumber::DbTimeout;
  if (sqlState == "28000") return ErrorNumber::DbLogin;
  return ErrorNumber::DbUnspecified;
}

}  // namespace quorvel::ado
