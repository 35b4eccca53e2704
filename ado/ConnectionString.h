#pragma once

#include <string_view>

#include "ado/engine/ConnectOptions.h"

namespace quorvel::ado {

/// Reads an OLE DB connection string: pairs `key=value` between semicolons. The first `=` of a pair separates key and
/// value; blanks around both are dropped; a value may be in single or double quotes (doubled inside). Keys match
/// without regard to letter case, and the last of equal keys counts. Keys read: Data Source (Server), Initial Catalog
/// (Database), User ID (UID), Password (PWD), and for SQL Server Driver, Encrypt and TrustServerCertificate; others are
/// ignored. adErrInvalidArgument for a pair without `=`, for a quote that is not closed and for text after a closing
/// quote; the message never shows a value.
[[nodiscard]] ConnectOptions ParseConnectionString(std::string_view text);

}  // namespace quorvel::ado
