#pragma once

#include <span>
#include <string_view>

#include "ado/engine/Session.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Runs `{? = call procedure(...)}` with the parameters by position and sets the values of the output parameters once
/// every result has been read, which is when a driver has them. Parameters without a value take the procedure's
/// default: those at the end are left out, others are sent as ODBC's default parameter.
[[nodiscard]] Result CallProcedure(Statement& statement, std::string_view procedure, std::span<Parameter> parameters);

}  // namespace quorvel::ado::odbc
