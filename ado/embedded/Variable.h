#pragma once

#include <optional>

#include "ado/embedded/TokenCursor.h"
#include "ado/engine/Parameter.h"

namespace quorvel::ado::embedded {

/// A variable or parameter of a batch; `info.name` keeps its @. Variables are numbered in order of declaration,
/// parameters first.
struct Variable {
  ParameterInfo info;
  std::optional<Value> defaultValue;  ///< of a parameter
};

/// Name and type, as in DECLARE and in a procedure's list of parameters.
[[nodiscard]] Variable ParseVariable(TokenCursor& cursor);

/// CoerceToParameter for a variable inside a batch: its errors are those of the database.
[[nodiscard]] Value CoerceVariable(Value value, const ParameterInfo& info);

}  // namespace quorvel::ado::embedded
