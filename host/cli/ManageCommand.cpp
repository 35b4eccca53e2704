#include <CLI/App.hpp>
#include <chrono>
#include <cstdint>
#include <string>

#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/SchemaProblems.h"
#include "platform/Error.h"
#include "runtime/RemarkContext.h"

namespace quorvel::cli {
namespace {

constexpr const char* kSource = "quorvel.manage";

// Without an event loop of its own this program cannot keep a modeless window open.
constexpr std::int32_t kModal = 1;

/// Before the window opens, because the window shows a message box for each list that it cannot read.
void RequireTables() {
  const auto connection = ConnectForSetUp(std::chrono::seconds(15));
  for (const ExpectedTable& table : ExpectedTables()) {
    if (table.name == kLayoutTable) continue;  // the window does not need it
    const std::string problem = TableProblem(*connection, table);
    if (problem.empty()) continue;
    throw Error(ErrorNumber::Component, kSource,
                fmt::format("Table {}: {} Run 'quorvel doctor' for everything that is missing.", table.name, problem));
  }
}

void RunManage() {
  RequireDatabase(kSource);
  RequireTables();
  RemarkContext::Create()->ViewManager(kModal);
}

}  // namespace

void AddManageCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("manage", "Open the window for users, rights and remark types");
  command->group("Set up")->callback(RunManage);
}

}  // namespace quorvel::cli
