#pragma once

#include <string>
#include <string_view>

#include "ado/odbc/OdbcApi.h"

namespace quorvel::ado::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "ODBC's wide texts are UTF-16 on both platforms");

/// UTF-16 as ODBC takes it. DriverError 22021 when the text is not well-formed UTF-8.
[[nodiscard]] std::u16string ToWide(std::string_view text);

/// The buffer of a wide text, as ODBC's functions take it; those that only read do not write to it.
[[nodiscard]] inline SQLWCHAR* Wide(std::u16string& text) noexcept { return reinterpret_cast<SQLWCHAR*>(text.data()); }

/// Reads `length` units that a driver wrote; half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string FromWide(const SQLWCHAR* text, std::size_t length);

}  // namespace quorvel::ado::odbc
