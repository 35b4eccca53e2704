#pragma once

#include <chrono>
#include <string>

namespace quorvel::ado {

/// The contents of a connection string, and the timeouts that go with it.
struct ConnectOptions {
  std::string dataSource;
  std::string initialCatalog;
  std::string userId;
  std::string password;
  std::string driver;                  ///< the ODBC driver to use; empty: the best one installed
  std::string encrypt;                 ///< as the driver takes it; empty: the driver's default
  std::string trustServerCertificate;  ///< as the driver takes it; empty: the driver's default
  std::chrono::seconds connectionTimeout{15};
  std::chrono::seconds commandTimeout{30};
};

}  // namespace quorvel::ado
