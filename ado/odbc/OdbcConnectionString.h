#pragma once

#include <string>
#include <string_view>

#include "ado/engine/ConnectOptions.h"

namespace quorvel::ado::odbc {

/// The connection string with which that driver connects to the server of `options`. DriverError HY024 for a value that
/// the driver cannot take.
[[nodiscard]] std::string OdbcConnectionString(const ConnectOptions& options, std::string_view driver);

}  // namespace quorvel::ado::odbc
