#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include "tests/support/Caught.h"

namespace quorvel::test {

std::shared_ptr<ado::Connection> ConnectBy(std::string connectionString) {
  auto connection = std::make_shared<ado::Connection>();
  connection->SetConnectionString(std::move(connectionString));
  connection->Open();
  return connection;
}

ado::Command CallOf(std::shared_ptr<ado::Connection> connection, const std::string& procedure) {
  ado::Command command;
  command.SetActiveConnection(std::move(connection));
  command.SetCommandType(ado::CommandType::StoredProcedure);
  command.SetCommandText(procedure);
  return command;
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

void ExpectFailures(ado::Connection& connection,
                    const std::vector<std::pair<std::string, std::string>>& batchesAndTexts) {
  for (const auto& [batch, text] : batchesAndTexts) {
    EXPECT_THAT(FailureOf(connection, batch).Description(), testing::HasSubstr(text)) << batch.substr(0, 50);
  }
}

}  // namespace quorvel::test
