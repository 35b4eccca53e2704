#pragma once

#include "ado/engine/DataType.h"
#include "ado/odbc/OdbcApi.h"

namespace quorvel::ado::odbc {

/// The most characters of a text that is not declared with (max).
inline constexpr SQLULEN kLongestText = 8000;

/// The type of a column or parameter that a driver describes by ODBC's number for its SQL type and by its size. A text
/// without a size, or with one beyond kLongestText, is a long one; a type that DataType lacks is read as text.
[[nodiscard]] DataType DataTypeOf(SQLSMALLINT sqlType, SQLULEN size) noexcept;

}  // namespace quorvel::ado::odbc
