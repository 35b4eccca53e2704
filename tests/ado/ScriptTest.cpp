#include "ado/Script.h"

#include <gmock/gmock.h>

namespace quorvel::ado {
namespace {

/// The batches as "first line:text", with | for a line end.
std::vector<std::string> Split(std::string_view script) {
  std::vector<std::string> batches;
  for (const Batch& batch : SplitBatches(script)) {
    std::string text = std::to_string(batch.firstLine) + ":" + std::string(batch.text);
    for (char& c : text) c = c == '\n' ? '|' : c;
    batches.push_back(text);
  }
  return batches;
}

TEST(Script, IsSplitAtLinesThatHoldOnlyGo) {
  const std::vector<std::pair<std::string_view, std::vector<std::string>>> cases = {
      {"", {}},
      {"GO\n\n  \ngo\nGO", {}},
      {"-- only a remark\nGO\n/* and\nanother */\nGO", {}},
      {"SELECT 1", {"1:SELECT 1"}},
      {"SELECT 1\nGO\nSELECT 2\nGO", {"1:SELECT 1|", "3:SELECT 2|"}},
      {"SELECT 1\r\n \tGo \t\r\n\r\nSELECT 2", {"1:SELECT 1\r|", "3:\r|SELECT 2"}},
      {"A\nGO -- it's done\nB\nGO/* x */\nC", {"1:A|", "3:B|", "5:C"}},
      {"A\nGO 5\nGOTO x\nGO;\nFROM GO\nGO_x\n", {"1:A|GO 5|GOTO x|GO;|FROM GO|GO_x|"}},
      {"A /*\n/* in */\nGO\n*/\nGO\nB", {"1:A /*|/* in */|GO|*/|", "6:B"}},
      {"A -- /*\nGO\nB -- don't\nGO\nC", {"1:A -- /*|", "3:B -- don't|", "5:C"}},
      {"SELECT 'it''s\nGO\n--'\nGO\nB", {"1:SELECT 'it''s|GO|--'|", "5:B"}},
      {"SELECT \"'\nGO\n\", ['\nGO\n]\nGO\nB", {"1:SELECT \"'|GO|\", ['|GO|]|", "7:B"}},
      {"SELECT 'open\nGO\n", {"1:SELECT 'open|GO|"}},
  };
  for (const auto& [script, expected] : cases) EXPECT_EQ(Split(script), expected) << script;
}

}  // namespace
}  // namespace quorvel::ado
