#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ado/engine/DriverError.h"

namespace quorvel::ado {

/// One entry of a connection's Errors: a driver's diagnostic record with the number a host tests for.
struct ProviderError {
  std::int32_t number;
  std::string description;
  std::string source;
  std::string sqlState;
  std::int32_t nativeError;
  int line;  ///< 1-based line of the batch; 0 when not known
};

/// The entry for `record` of the engine that `source` names.
[[nodiscard]] ProviderError MakeProviderError(const Diagnostic& record, std::string_view source);

/// The number that a host finds for a SQLSTATE.
[[nodiscard]] std::int32_t NumberOfSqlState(std::string_view sqlState) noexcept;

}  // namespace quorvel::ado
