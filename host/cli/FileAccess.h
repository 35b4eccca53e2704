#pragma once

#include <string>

namespace quorvel::cli {

/// The users that the mode of a file lets read it, as in "user root and group sales"; empty when there is no such file.
[[nodiscard]] std::string ReadersOf(const std::string& file);

/// The same as the end of a sentence about the file, as in ", which user root may read"; empty when there is none.
[[nodiscard]] std::string WhichMayRead(const std::string& file);

}  // namespace quorvel::cli
