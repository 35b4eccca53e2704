#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include "tests/support/Caught.h"

namespace quorvel::test {

std::shared_ptr<ado::Connection> ConnectBy(std::string connectionString) {
  auto connection = std::make_shared<ado::Connection>();
  connection->SetConnectionString(std::move(connectionString));
  connection->Open();
  return connection;
}

std::string Shown(const Value& value) { return IsNull(value) ? "NULL" : ToText(value); }

std::vector<std::string> RowsOf(ado::Connection& connection, std::string_view batch) {
  const auto rows = connection.Execute(batch);
  std::vector<std::string> result;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    std::string line;
    for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
      line += (i == 0 ? "" : "|") + Shown(rows->Fields(i).Value());
    }
    result.push_back(line);
  }
  return result;
}

Error FailureOf(ado::Connection& connection, std::string_view batch) {
  SCOPED_TRACE(batch);
  return Caught([&] { connection.Execute(batch); });
}

}  // namespace quorvel::test
