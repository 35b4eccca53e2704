#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvel::ado {

/// One batch of a T-SQL script.
struct Batch {
  std::string_view text;  ///< points into the script
  int firstLine;          ///< 1-based line of the script on which the batch begins
};

/// Cuts a script at its lines that hold nothing but GO (any case, blanks and a comment after it allowed);
/// a GO inside a comment or a quoted text does not count, and a GO with a repeat
/// count is not taken. Empty batches are left out.
[[nodiscard]] std::vector<Batch> SplitBatches(std::string_view script);

}  // namespace quorvel::ado
