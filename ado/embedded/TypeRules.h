#pragma once

#include <optional>
#include <string>

#include "ado/embedded/SqlType.h"
#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {

/// The check that makes an SQLite column refuse what its T-SQL type refuses, as the end of the column's definition;
/// empty for a type that takes any value. SQLite by itself lets any value into any column.
[[nodiscard]] std::string TypeRule(const std::string& column, const SqlType& type);

/// The error of a violated TypeRule, from the name of the violated check; nothing for any other check.
[[nodiscard]] std::optional<DriverError> TypeRuleViolation(const std::string& constraint);

}  // namespace quorvel::ado::embedded
