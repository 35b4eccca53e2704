#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ado/embedded/Program.h"

namespace quorvel::ado::embedded {

/// The values that a caller gives for a procedure's parameters, by position. Nothing means DEFAULT.
using GivenArguments = std::vector<std::optional<Value>>;

/// A procedure's frame from its arguments; parameters without one take their defaults. DriverError, with a server's
/// number, for too many arguments or a missing one. `name` is the procedure's, for the error.
[[nodiscard]] Frame MakeFrame(const Program& procedure, GivenArguments given, std::string_view name);

/// The number of the parameter that the argument at `position` belongs to. The argument's name decides when it has one:
/// DriverError when there is no such parameter. Otherwise the number is `position`, even beyond the last parameter.
[[nodiscard]] std::size_t FindParameter(const Program& procedure, const CallStep::Argument& argument,
                                        std::size_t position, std::string_view name);

}  // namespace quorvel::ado::embedded
