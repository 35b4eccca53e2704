#pragma once

#include <memory>

#include "ado/engine/ConnectOptions.h"
#include "ado/engine/Session.h"

namespace quorvel::ado {

/// Opens a session on the SQL Server `options.dataSource` through an ODBC driver (see docs/database.md for which
/// one), in autocommit mode. A connection that gets lost stays lost: every call on it fails until the caller opens
/// another one, so nothing is ever sent twice. DriverError when there is no driver or no connection to be had.
[[nodiscard]] std::unique_ptr<Session> OpenOdbc(const ConnectOptions& options);

}  // namespace quorvel::ado
