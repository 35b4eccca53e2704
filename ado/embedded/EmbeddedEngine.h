#pragma once

#include <memory>
#include <string>

#include "ado/engine/ConnectOptions.h"
#include "ado/engine/Session.h"

namespace quorvel::ado {

/// Opens the database file `options.initialCatalog`. Write-ahead log, foreign keys on, a busy wait equal to the
/// command timeout. DriverError when the file is missing, cannot be read or is not a database of this engine.
[[nodiscard]] std::unique_ptr<Session> OpenEmbedded(const ConnectOptions& options);

/// Makes an empty database file for OpenEmbedded; does nothing when there is a file already. Missing folders
/// are created. Throws Error with the operating system's reason.
void CreateEmbeddedDatabase(const std::string& path);

}  // namespace quorvel::ado
