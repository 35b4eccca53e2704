#pragma once

#include <gmock/gmock.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/admin/AdminWindow.h"
#include "tests/support/EngineUnderTest.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {

/// The administration over the sample data, on the embedded engine or through ODBC on the stand-in server.
struct AdminSession {
  explicit AdminSession(EngineKind kind);

  /// Loads the window. The recordsets then hold the rows of this moment.
  void Open() { window.admin.Load(); }
  void Run(std::string_view batch) const { database.Run(batch); }
  [[nodiscard]] std::string Ask(std::string_view query) const { return database.Ask(query); }
  /// The ID and the position of each remark type in a context, with a bar between them.
  [[nodiscard]] std::vector<std::string> TypesOf(int contextKey) const;
  /// The title, a bar and the text of each message and question since the last call.
  [[nodiscard]] std::vector<std::string> Prompted();
  /// Presses New and answers the question for the ID.
  void New(const std::string& id);
  /// Presses Delete and answers the question, if one is expected.
  void Delete(std::optional<PromptAnswer> answer = std::nullopt);

  PromptsGuard prompts;
  TestDatabase database;
  std::optional<StandInServer> server;
  AdminWindow window;
};

/// A session on the engine of the test's parameter.
class AdminTest : public testing::TestWithParam<EngineKind>, protected AdminSession {
 protected:
  AdminTest() : AdminSession(GetParam()) {}
  using AdminSession::Run;  // testing::Test has one too
};

/// Two columns of each row of a grid, with a bar between them.
[[nodiscard]] std::vector<std::string> Shown(const MemoryRows& grid, std::size_t first, std::size_t second);

/// For INSTANTIATE_TEST_SUITE_P.
inline const auto kBothEngines = testing::Values(EngineKind::Embedded, EngineKind::StandIn);
[[nodiscard]] inline std::string NameOfParam(const testing::TestParamInfo<EngineKind>& param) {
  return NameOf(param.param);
}

}  // namespace quorvel::test
