#include "host/cli/Permissions.h"

#include <set>
#include <string>

#include "ado/Script.h"
#include "data/Schema.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/ShippedProcedures.h"
#include "tests/support/Matchers.h"

namespace quorvel::test {
namespace {

/// The names that follow a mark in a script, such as "CREATE TABLE ".
std::set<std::string> NamesAfter(std::string_view mark, std::string_view script) {
  std::set<std::string> names;
  for (auto at = script.find(mark); at != std::string_view::npos; at = script.find(mark, at + 1)) {
    const std::string_view rest = script.substr(at + mark.size());
    names.emplace(rest.substr(0, rest.find_first_of(" \n")));
  }
  return names;
}

std::set<std::string> ObjectsOf(const std::vector<cli::Permission>& permissions) {
  std::set<std::string> objects;
  for (const cli::Permission& permission : permissions) objects.insert(permission.object);
  return objects;
}

// `init` takes a text that is not listed for the host's own and keeps it.
TEST(ShippedProcedures, ListHasTheTextsOfThisVersion) {
  std::size_t found = 0;
  for (const ado::Batch& batch : ado::SplitBatches(SchemaScript())) {
    for (const std::string_view name : cli::kMemoProcedures) {
      if (!batch.text.starts_with("ALTER PROCEDURE " + std::string(name) + "\n")) continue;
      ++found;
      EXPECT_THAT(cli::ShippedFingerprints(), Contains(cli::Fingerprint(batch.text)))
          << name << " has changed: add 0x" << std::hex << cli::Fingerprint(batch.text) << " to the list";
    }
  }
  EXPECT_EQ(found, cli::kMemoProcedures.size());
  EXPECT_EQ(cli::Fingerprint("ALTER PROCEDURE a\r\nAS\n  SELECT 1\n"),
            cli::Fingerprint("\nCREATE PROCEDURE a AS SELECT 1"));
  EXPECT_NE(cli::Fingerprint("CREATE PROCEDURE a AS SELECT 1"), cli::Fingerprint("CREATE PROCEDURE a AS SELECT 10"));
}

TEST(Permissions, RoleGetsWhatTheSchemaHasAndNothingElse) {
  EXPECT_EQ(ObjectsOf(cli::ProcedurePermissions()), NamesAfter("CREATE PROCEDURE ", SchemaScript()));
  auto tables = NamesAfter("CREATE TABLE ", SchemaScript());
  // Only procedures use these two.
  EXPECT_EQ(tables.erase("tciMemo") + tables.erase("ttwSurrogateKey"), 2U);
  EXPECT_EQ(ObjectsOf(cli::TablePermissions()), tables);

  EXPECT_THAT(NamesAfter("\nGRANT ", GrantsScript()), ElementsAre("EXECUTE", "SELECT", "UPDATE"));
  EXPECT_EQ(NamesAfter("\nGRANT UPDATE ON ", GrantsScript()), ObjectsOf(cli::ColumnPermissions()));
  EXPECT_EQ(cli::ColumnPermissions().size(), 26U);
  for (const cli::ExpectedTable& table : cli::ExpectedTables()) {
    for (const std::string& column : table.written) EXPECT_THAT(table.columns, Contains(column)) << table.name;
  }
}

}  // namespace
}  // namespace quorvel::test
