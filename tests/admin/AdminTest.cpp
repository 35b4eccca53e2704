#include "tests/admin/AdminTest.h"

#include "tests/support/Rows.h"
#include "tests/support/TestSettings.h"

namespace quorvel::test {

AdminSession::AdminSession(EngineKind kind) {
  if (kind != EngineKind::StandIn) return;
  server.emplace(database.DatabaseFile());
  UseSettings(server->Address(), "Ledger; Driver=FreeTDS", StandInServer::kUser,
              "\"" + std::string(StandInServer::kPassword) + "\"");
}

std::vector<std::string> AdminSession::TypesOf(int contextKey) const {
  return RowsOf(*database.Connect(),
                "SELECT t.RemarkTypeID, c.DisplaySeq FROM ttwRemarkContext c INNER JOIN ttwRemarkType t ON "
                "t.RemarkTypeKey = c.RemarkTypeKey WHERE c.ContextKey = " +
                    std::to_string(contextKey) + " ORDER BY c.DisplaySeq");
}

std::vector<std::string> AdminSession::Prompted() {
  std::vector<std::string> texts;
  for (const ScriptedPrompts::Shown& shown : std::exchange(prompts->shown, {})) {
    texts.push_back(shown.title + "|" + shown.text);
  }
  return texts;
}

void AdminSession::New(const std::string& id) {
  prompts->texts.emplace_back(id);
  window.admin.ClickNew();
}

void AdminSession::Delete(std::optional<PromptAnswer> answer) {
  if (answer) prompts->answers.push_back(*answer);
  window.admin.ClickDelete();
  EXPECT_TRUE(prompts->answers.empty()) << "no question for " << window.cboID.CurrentText();
}

std::vector<std::string> Shown(const MemoryRows& grid, std::size_t first, std::size_t second) {
  std::vector<std::string> rows;
  for (std::int32_t row = 1; grid.rows && row <= grid.rows->RecordCount(); ++row) {
    rows.push_back(Shown(grid.rows->At(row, first)) + "|" + Shown(grid.rows->At(row, second)));
  }
  return rows;
}

}  // namespace quorvel::test
