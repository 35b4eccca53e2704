#pragma once

#include <string_view>

namespace quorvel {

/// The T-SQL scripts of data/schema, as they stand in the source tree; batches end with GO. Running one again
/// changes nothing.
[[nodiscard]] std::string_view SchemaScript() noexcept;
[[nodiscard]] std::string_view SampleScript() noexcept;

}  // namespace quorvel
