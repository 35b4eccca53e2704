#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ado/Command.h"
#include "platform/Error.h"

namespace quorvel::test {

/// An open connection by that connection string.
[[nodiscard]] std::shared_ptr<ado::Connection> ConnectBy(std::string connectionString);

/// A command that calls a procedure.
[[nodiscard]] ado::Command CallOf(std::shared_ptr<ado::Connection> connection, const std::string& procedure);

/// A value as text; NULL for null.
[[nodiscard]] std::string Shown(const Value& value);

/// Every row of a batch's first result as one text, its values between bars, NULL for null.
[[nodiscard]] std::vector<std::string> RowsOf(ado::Connection& connection, std::string_view batch);

/// The error of a batch; fails the test when there is none.
[[nodiscard]] Error FailureOf(ado::Connection& connection, std::string_view batch);

/// Expects of each batch that it fails, with the text in its description.
void ExpectFailures(ado::Connection& connection,
                    const std::vector<std::pair<std::string, std::string>>& batchesAndTexts);

}  // namespace quorvel::test
