#pragma once

#include <span>
#include <string>
#include <string_view>

#include "ado/Connection.h"

/// What the component needs of a database, to hold one against.
namespace quorvel::cli {

struct ExpectedTable {
  std::string_view name;
  std::string_view columns;  ///< as a SELECT takes them
  std::string_view written;  ///< those that the component changes with UPDATE; may be empty
};

/// The host's table of memos, which the component reaches through procedures only: its columns may bear any names.
inline constexpr std::string_view kMemoTable = "tciMemo";

struct ExpectedProcedure {
  std::string_view name;
  std::string_view parameters;  ///< in order, parted by a comma and a blank; "OUTPUT" behind those that return
};

/// The tables that the component reads with statements of its own.
[[nodiscard]] std::span<const ExpectedTable> ExpectedTables();
[[nodiscard]] std::span<const ExpectedProcedure> ExpectedProcedures();

/// Why a batch fails; the empty text when it runs.
[[nodiscard]] std::string BatchProblem(ado::Connection& connection, std::string_view batch);

/// Why the columns cannot be read from the table; the empty text when they can.
[[nodiscard]] std::string TableProblem(ado::Connection& connection, std::string_view table, std::string_view columns);

/// What is wrong with a procedure of that name; the empty text when it takes exactly those parameters.
[[nodiscard]] std::string ProcedureProblem(ado::Connection& connection, std::string_view procedure,
                                           std::string_view parameters);
/// The same for an owner lookup: it takes @OwnerID; what it may take behind that is between the host and its defaults.
[[nodiscard]] std::string OwnerProcedureProblem(ado::Connection& connection, std::string_view procedure);

}  // namespace quorvel::cli
