#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "platform/Error.h"

namespace quorvel::test {

/// Every row of a batch's first result as one text, its values between bars, NULL for null.
[[nodiscard]] std::vector<std::string> RowsOf(ado::Connection& connection, std::string_view batch);

/// The error that a batch ends in; fails the test when there is none.
[[nodiscard]] Error FailureOf(ado::Connection& connection, std::string_view batch);

}  // namespace quorvel::test
