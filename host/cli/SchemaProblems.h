#pragma once

#include <string>
#include <string_view>

#include "ado/Connection.h"
#include "host/cli/ExpectedSchema.h"

/// Checks of single objects in a database. Each returns what is wrong, or the empty text.
namespace quorvel::cli {

/// The error of a batch.
[[nodiscard]] std::string BatchProblem(ado::Connection& connection, std::string_view batch);

/// Why nothing can be read from the table.
[[nodiscard]] std::string TableProblem(ado::Connection& connection, std::string_view table);
/// Why the expected columns cannot be read.
[[nodiscard]] std::string TableProblem(ado::Connection& connection, const ExpectedTable& table);

/// Why the procedure cannot be called with exactly the expected parameters.
[[nodiscard]] std::string ProcedureProblem(ado::Connection& connection, const ExpectedProcedure& procedure);
/// Why the procedure cannot look an owner up. It takes @OwnerID; further parameters are the host's matter.
[[nodiscard]] std::string OwnerProcedureProblem(ado::Connection& connection, std::string_view procedure);

}  // namespace quorvel::cli
