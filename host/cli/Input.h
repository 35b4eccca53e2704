#pragma once

#include <string>

namespace quorvel::cli {

/// The whole of a file, or of the standard input when `path` is "-". Throws Error -1 from `source` with the
/// system's reason.
[[nodiscard]] std::string ReadWhole(const std::string& path, const std::string& source);

/// A text given on the command line; "-" stands for the standard input, whose final line end does not count.
[[nodiscard]] std::string ReadTextArgument(const std::string& argument, const std::string& source);

}  // namespace quorvel::cli
