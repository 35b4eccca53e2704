#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "ado/Connection.h"

namespace quorvel::cli {

/// Receives the results of a script's batches; either function may be empty.
struct ScriptOutput {
  std::function<void(ado::Recordset&)> rows;             ///< the result of a batch that has one
  std::function<void(const std::string& text)> message;  ///< then each of its messages, PRINT's among them
};

/// Runs the batches of a T-SQL script in order and returns their number. The first error ends it: the database's error,
/// with `name`, batch and line before its description and the database's other records after it.
std::size_t RunScript(ado::Connection& connection, std::string_view name, std::string_view script,
                      const ScriptOutput& output = {});

}  // namespace quorvel::cli
