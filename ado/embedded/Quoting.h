#pragma once

#include <string>
#include <string_view>

namespace quorvel::ado::embedded {

/// `name` as a quoted SQLite identifier.
[[nodiscard]] std::string QuoteName(std::string_view name);
/// `text` as an SQLite literal.
[[nodiscard]] std::string QuoteText(std::string_view text);

}  // namespace quorvel::ado::embedded
