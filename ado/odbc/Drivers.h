#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ado/odbc/OdbcApi.h"

namespace quorvel::ado::odbc {

/// The names of the drivers that the driver manager knows.
[[nodiscard]] std::vector<std::string> InstalledDrivers(SQLHENV environment);

/// The driver to connect through: `wanted` when it is not empty, otherwise the first installed one of those that
/// connect to a SQL Server. DriverError IM002 when it is not installed; the message lists the installed ones.
[[nodiscard]] std::string ChooseDriver(std::string_view wanted, const std::vector<std::string>& installed);

}  // namespace quorvel::ado::odbc
