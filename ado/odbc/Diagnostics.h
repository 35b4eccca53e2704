#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ado/engine/DriverError.h"
#include "ado/odbc/OdbcApi.h"

namespace quorvel::ado::odbc {

/// Every diagnostic record of the last call on the handle; empty when the driver gave none.
[[nodiscard]] std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle);

/// The failure of `function` on that handle: all its records, errors before warnings, or a made-up one that names
/// the function when the driver gave no record.
[[nodiscard]] DriverError FailureOf(SQLSMALLINT handleType, SQLHANDLE handle, std::string_view function);

/// Whether FailureOf made up that record.
[[nodiscard]] bool IsMadeUp(const Diagnostic& record) noexcept;

/// `message` without the names in brackets that drivers and the driver manager put before it.
[[nodiscard]] std::string_view WithoutPrefixes(std::string_view message) noexcept;

}  // namespace quorvel::ado::odbc
