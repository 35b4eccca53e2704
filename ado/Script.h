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

/// Splits a script at the lines that hold only GO, in any letter case, with blanks around it or a comment after it. A
/// GO inside a comment or a quoted text does not count, nor does one with a repeat count. Empty batches are left out.
[[nodiscard]] std::vector<Batch> SplitBatches(std::string_view script);

}  // namespace quorvel::ado
