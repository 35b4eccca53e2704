#pragma once

#include <string>
#include <string_view>

namespace quorvel::ado::odbc {

/// The parts of a Data Source such as "host", "host\instance" or "tcp:host,port".
struct ServerAddress {
  std::string host;
  std::string instance;  ///< empty for the default one; without meaning when there is a port
  std::string port;      ///< digits; empty when the driver has to find it
};

/// DriverError HY024 when the port is not a number from 1 to 65535.
[[nodiscard]] ServerAddress ParseServerAddress(std::string_view dataSource);

}  // namespace quorvel::ado::odbc
