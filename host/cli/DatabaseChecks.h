#pragma once

#include "ado/Connection.h"
#include "host/cli/Report.h"

namespace quorvel::cli {

/// Checks tables, procedures and owner procedures, and on a server the login's permissions. A lost connection is one
/// failed check and ends the rest.
void CheckDatabase(Report& report, ado::Connection& connection);

}  // namespace quorvel::cli
