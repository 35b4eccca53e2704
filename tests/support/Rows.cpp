#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include "tests/support/Caught.h"
namespace quorvel::test {

std::vector<std::string> RowsOf(ado::Connection& connection, std::string_view batch) {
  const auto rows = connection.Execute(batch);
  std::vector<std::string> result;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    std::string line;
    for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
      const Value value = rows->Fields(i).Value();
      line += (i == 0 ? "" : "|") + (IsNull(value) ? "NULL" : ToText(value));
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
