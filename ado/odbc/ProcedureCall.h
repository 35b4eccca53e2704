#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "ado/engine/Session.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Runs `{? = call procedure(...)}` with the parameters by position and sets the values of the output parameters once
/// every result has been read, which is when a driver has them. Parameters without a value take the procedure's
/// default: those at the end are left out, others are sent as ODBC's default parameter.
[[nodiscard]] Result CallProcedure(Statement& statement, std::string_view procedure, std::span<Parameter> parameters);

/// Runs `{call procedure(...)}` for each of the calls in one statement. As one request a driver sends them either as
/// calls (Microsoft's, by their documentation) or as a text of EXEC statements (FreeTDS). Returns what ReadOutcomes
/// does; a failure before the results is the outcome of the first call.
[[nodiscard]] std::vector<Outcome> CallTogether(Statement& statement, std::span<const ReadingCall> calls);

}  // namespace quorvel::ado::odbc
