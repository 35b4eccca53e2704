#pragma once

#include <memory>

#include "ado/engine/ConnectOptions.h"
#include "ado/engine/Session.h"

namespace quorvel::ado {

/// Opens a session on the SQL Server `options.dataSource` through an ODBC driver (docs/database.md says which), in
/// autocommit mode. A lost connection stays lost: every later call fails, so nothing is ever sent twice. DriverError
/// when there is no driver or the connection fails.
[[nodiscard]] std::unique_ptr<Session> OpenOdbc(const ConnectOptions& options);

}  // namespace quorvel::ado
