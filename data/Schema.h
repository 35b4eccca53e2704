#pragma once

#include <string_view>

namespace quorvel {

/// The T-SQL scripts of data/schema, unchanged; batches end with GO. A second run leaves tables and rows alone and
/// brings the procedures to this version.
[[nodiscard]] std::string_view SchemaScript() noexcept;
[[nodiscard]] std::string_view SampleScript() noexcept;
/// The role with the permissions that the component's login needs. For a SQL Server only.
[[nodiscard]] std::string_view GrantsScript() noexcept;

}  // namespace quorvel
