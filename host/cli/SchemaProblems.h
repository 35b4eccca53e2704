#pragma once

#include <string>
#include <string_view>
#include <vector>

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

/// The expected columns that an existing table does not have; none for a table that cannot be read, and none when the
/// connection is lost.
[[nodiscard]] std::vector<std::string> MissingColumns(ado::Connection& connection, const ExpectedTable& table);
/// "lacks the columns A, B".
[[nodiscard]] std::string MissingColumnsProblem(const std::vector<std::string>& missing);
/// The advice for them, with the statements that add them where each has a default value.
[[nodiscard]] std::string MissingColumnsRemedy(const ExpectedTable& table, const std::vector<std::string>& missing);

/// The newest version of the layout that was made in the database; 0 when it has none. Throws Error when the database
/// cannot be asked.
[[nodiscard]] int FindLayoutVersion(ado::Connection& connection);

/// Why the procedure cannot be called with exactly the expected parameters.
[[nodiscard]] std::string ProcedureProblem(ado::Connection& connection, const ExpectedProcedure& procedure);
/// Why the procedure cannot look an owner up. It takes @OwnerID; further parameters are the host's matter.
[[nodiscard]] std::string OwnerProcedureProblem(ado::Connection& connection, std::string_view procedure);

}  // namespace quorvel::cli
