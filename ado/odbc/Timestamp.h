#pragma once

#include "ado/odbc/OdbcApi.h"
#include "platform/DateTime.h"

namespace quorvel::ado::odbc {

/// Rounded to the millisecond, the precision of a DateTime.
[[nodiscard]] DateTime FromTimestamp(const SQL_TIMESTAMP_STRUCT& timestamp) noexcept;
[[nodiscard]] SQL_TIMESTAMP_STRUCT ToTimestamp(DateTime value) noexcept;

}  // namespace quorvel::ado::odbc
