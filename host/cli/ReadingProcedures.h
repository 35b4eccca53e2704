#pragma once

#include <string>
#include <string_view>

#include "ado/Connection.h"

/// The procedures that only read are checked by running them, as the component does, with keys that cannot exist: a
/// host may have adapted them, or changed the tables under them. Each function returns what is wrong, or the empty
/// text.
namespace quorvel::cli {

/// Why the procedure fails, or which column its result lacks. Nothing for a procedure that does not only read.
[[nodiscard]] std::string ReadingProblem(ado::Connection& connection, std::string_view procedure);

/// The same for a host's lookup of owners.
[[nodiscard]] std::string LookupProblem(ado::Connection& connection, std::string_view procedure);

}  // namespace quorvel::cli
