#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/RemarkContext.h"

namespace CLI {
class App;
}

namespace quorvel::cli {

/// The remark that a command is about. Its key never changes. Its index in the list does, when another user adds or
/// deletes a remark; `expect` is the key that the remark at the index must have.
struct RemarkChoice {
  std::optional<std::int32_t> key;
  std::optional<std::int32_t> index;
  std::optional<std::int32_t> expect;
};

/// Gives a command the options --key, --index and --expect.
void AddChoiceOptions(CLI::App& command, RemarkChoice& choice);

/// Throws CLI::ValidationError unless the choice has a key or an index.
void RequireChoice(const RemarkChoice& choice);

/// The 1-based index of the chosen remark in the context's list. Throws Error -1 from `source` when there is no such
/// remark, or when the remark at the index has another key than the expected one.
[[nodiscard]] std::int32_t FindChosen(const RemarkContext& context, const RemarkChoice& choice,
                                      const std::string& source);

}  // namespace quorvel::cli
