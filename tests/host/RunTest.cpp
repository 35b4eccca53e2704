#include <fstream>

#include "tests/host/CommandLine.h"

namespace quorvel::test {
namespace {

TEST_F(CommandLine, RunNamesFileBatchAndLineOfAnErrorAndEarlierBatchesStay) {
  Initialize(false);
  const std::string file = File("script.sql");
  std::ofstream(file) << "-- first\nINSERT INTO ttwGroup (GroupID) VALUES ('Kept')\nGO\n\n"
                         "INSERT INTO ttwGroup (GroupID) VALUES ('Kept too')\n"
                         "SELECT *\nFROM NoSuchTable\nGO\nINSERT INTO ttwGroup (GroupID) VALUES ('Never')\nGO\n";
  EXPECT_THAT(Quorvel({"run", file}),
              FailsWith(MatchesRegex("quorvel: error -2147217865 at [^\n]*/script.sql, batch 2, line [67]: "
                                     "[^\n]*NoSuchTable[^\n]*\n")));
  EXPECT_EQ(RunSql("SELECT GroupID FROM ttwGroup ORDER BY GroupKey"),
            "GroupID\n--------\nDefault\nKept\nKept too\n(3 rows)\n");
}

TEST_F(CommandLine, RunPrintsRowsAsATable) {
  Initialize(false);
  EXPECT_EQ(RunSql("SELECT 7 AS N, 'a' AS Letter UNION ALL SELECT 1234, N'\xC3\xA9\nb'\nGO\nSELECT NULL AS Nothing"),
            "   N  Letter\n----  ------\n   7  a\n1234  \xC3\xA9\\nb\n(2 rows)\n\nNothing\n-------\nNULL\n(1 row)\n");
  EXPECT_EQ(RunSql("UPDATE ttwGroup SET Caption = 'x'\nGO\nDELETE FROM ttwRight\n"), "2 batches run\n");
}

TEST_F(CommandLine, RunOfAnUnreadableFileIsAnErrorWithItsReason) {
  Initialize(false);
  EXPECT_THAT(Quorvel({"run", "/no/such/file.sql"}),
              Fails("-1 at quorvel.run: Cannot read /no/such/file.sql: No such file or directory"));
  EXPECT_THAT(Quorvel({"run", "/"}), Fails("-1 at quorvel.run: Cannot read /: Is a directory"));
}

}  // namespace
}  // namespace quorvel::test
