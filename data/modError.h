#pragma once

#include <string>
#include <string_view>

namespace quorvel::modError {

/// For catch blocks: adds the place to the error in flight and throws it again. The description gets `context` in
/// front, unless `context` is empty or an inner handler added one already; the source grows by one line (ErrorSource).
/// An exception that is not an Error becomes one, with number DbUnspecified.
[[noreturn]] void RaiseError(std::string_view moduleName, std::string_view procName, std::string_view context = {});

/// The source text with the line application.module.procedure@COMPUTER:USER[version major.minor.revision]. It
/// follows the source of the error in flight when that source contains a point and is therefore a chain already.
[[nodiscard]] std::string ErrorSource(std::string_view moduleName, std::string_view procName);

}  // namespace quorvel::modError
