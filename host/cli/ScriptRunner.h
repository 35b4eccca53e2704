#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "platform/ado/Connection.h"

namespace quorvel::cli {

/// Runs a T-SQL script's batches in order and gives each opened result to `show`, if any. Returns how many batches
/// there were. The first error ends it: the database's error, its description preceded by `name`, line and batch
/// and followed by what else the database had to say.
std::size_t RunScript(ado::Connection& connection, std::string_view name, std::string_view script,
                      const std::function<void(ado::Recordset&)>& show = {});

}  // namespace quorvel::cli
