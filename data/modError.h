#pragma once

#include <string>
#include <string_view>

namespace quorvel::modError {

/// Call it in a catch block: decorates the error in flight with where it passes through and throws it again.
/// The description gets `context` in front, unless that is empty or an inner handler gave one already; the
/// source grows by one line of the chain (ErrorSource). An exception that is not an Error becomes one, with
/// number DbUnspecified.
[[noreturn]] void RaiseError(std::string_view moduleName, std::string_view procName, std::string_view context = {});

/// The source text for the error in flight, if any: the chain so far (when it holds a point) and the line
/// application.module.procedure@COMPUTER:USER[version major.minor.revision].
[[nodiscard]] std::string ErrorSource(std::string_view moduleName, std::string_view procName);

}  // namespace quorvel::modError
