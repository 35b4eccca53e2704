#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "ado/Connection.h"

namespace quorvel::cli {

/// Who is given what a script's batches bring; either may be empty.
struct ScriptOutput {
  std::function<void(ado::Recordset&)> rows;             ///< the result of a batch that has one
  std::function<void(const std::string& text)> message;  ///< then each of its messages, PRINT's among them
};

/// Runs a T-SQL script's batches in order. Returns how many there were. The first error ends it: the database's error,
/// its description preceded by `name`, batch and line and followed by what else the database had to say.
std::size_t RunScript(ado::Connection& connection, std::string_view name, std::string_view script,
                      const ScriptOutput& output = {});

}  // namespace quorvel::cli
