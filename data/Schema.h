#pragma once

#include <string_view>

namespace quorvel {

/// The T-SQL scripts of data/schema, as they stand in the source tree; batches end with GO. Run again they
/// leave tables and rows alone and bring the procedures to this version.
[[nodiscard]] std::string_view SchemaScript() noexcept;
[[nodiscard]] std::string_view SampleScript() noexcept;
/// The role that holds what the component's login needs. For a SQL Server only.
[[nodiscard]] std::string_view GrantsScript() noexcept;

}  // namespace quorvel
