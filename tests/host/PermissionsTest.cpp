#include "host/cli/Permissions.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>
#include <string>

#include "data/Schema.h"
#include "host/cli/ExpectedSchema.h"

namespace quorvel::test {
namespace {

using ::testing::Contains;
using ::testing::Not;

/// What the first group of a pattern finds everywhere in a script, comments left out.
std::set<std::string> FindAll(std::string_view script, const std::string& pattern) {
  const std::string text = std::regex_replace(std::string(script), std::regex("--[^\n]*"), "");
  const std::regex expression(pattern);
  std::set<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
    found.insert((*match)[1]);
  }
  return found;
}

std::set<std::string> ObjectsOf(const std::vector<cli::Permission>& permissions) {
  std::set<std::string> objects;
  for (const cli::Permission& permission : permissions) objects.insert(permission.object);
  return objects;
}

// Three places know what the component uses: the schema, the grants, and what the doctor expects.
TEST(Permissions, GrantsSchemaAndExpectationsAgree) {
  const auto procedures = FindAll(SchemaScript(), R"((?:CREATE|ALTER) PROCEDURE (\w+))");
  EXPECT_EQ(FindAll(GrantsScript(), R"(GRANT EXECUTE ON (\w+) TO QuorvelUser)"), procedures);
  EXPECT_EQ(ObjectsOf(cli::ProcedurePermissions()), procedures);

  auto tables = FindAll(SchemaScript(), R"(CREATE TABLE (\w+))");
  EXPECT_THAT(tables, Contains("tciMemo"));
  // Procedures alone touch these two.
  tables.erase("tciMemo");
  tables.erase("ttwSurrogateKey");
  EXPECT_EQ(FindAll(GrantsScript(), R"(GRANT SELECT ON (\w+) TO QuorvelUser)"), tables);
  EXPECT_EQ(ObjectsOf(cli::TablePermissions()), tables);
}

TEST(Permissions, OnlyTheColumnsThatAreWrittenMayBeUpdatedAndNothingElseIsGranted) {
  std::set<std::string> expected;
  for (const cli::ExpectedTable& table : cli::ExpectedTables()) {
    if (!table.written.empty()) expected.insert(std::string(table.name) + " (" + std::string(table.written) + ")");
  }
  EXPECT_EQ(FindAll(GrantsScript(), R"(GRANT UPDATE ON (\w+ \([^)]*\)) TO QuorvelUser)"), expected);
  EXPECT_EQ(FindAll(GrantsScript(), R"(\n\s*GRANT (\w+) )"), (std::set<std::string>{"EXECUTE", "SELECT", "UPDATE"}));
  EXPECT_THAT(FindAll(GrantsScript(), R"((\w+))"), Not(Contains("tciMemo")));
  for (const cli::Permission& permission : cli::ColumnPermissions()) {
    EXPECT_THAT(
        FindAll(SchemaScript(), "CREATE TABLE " + permission.object + R"( \([^;]*?\n    ()" + permission.column + ") "),
        Contains(permission.column))
        << permission.object;
  }
  EXPECT_EQ(cli::ColumnPermissions().size(), 26U);
}

}  // namespace
}  // namespace quorvel::test
