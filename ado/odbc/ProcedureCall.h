#pragma once

#include <span>
#include <string_view>

#include "ado/Engine.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Runs `{? = call procedure(...)}` with the arguments by position and puts output values into them once every
/// result has been read, which is when a driver has them. Arguments without a value take the procedure's default:
/// those at the end are left out, others are sent as ODBC's default parameter.
[[nodiscard]] Result CallProcedure(Statement& statement, std::string_view procedure, std::span<Argument> arguments);

}  // namespace quorvel::ado::odbc
