#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ado/engine/ConnectOptions.h"
#include "ado/odbc/OdbcApi.h"

namespace quorvel::ado::odbc {

/// The names of the drivers that the driver manager knows.
[[nodiscard]] std::vector<std::string> InstalledDrivers(SQLHENV environment);

/// The driver to connect through: `wanted` when it is not empty, otherwise the first installed one of those that
/// speak to a SQL Server. DriverError IM002 when it is not installed; the message tells what is.
[[nodiscard]] std::string ChooseDriver(std::string_view wanted, const std::vector<std::string>& installed);

/// A Data Source in its parts: "host", "host\instance", "host,port", with "tcp:" before it or not. A port makes
/// the instance's name idle. DriverError HY024 when it is none.
struct ServerAddress {
  std::string host;
  std::string instance;  ///< empty for the default one
  std::string port;      ///< digits; empty where the driver is to find out
};
[[nodiscard]] ServerAddress ParseServerAddress(std::string_view dataSource);

/// The connection string by which that driver reaches the server of `options`. DriverError HY024 for a value that the
/// driver cannot be given.
[[nodiscard]] std::string OdbcConnectionString(const ConnectOptions& options, std::string_view driver);

}  // namespace quorvel::ado::odbc
