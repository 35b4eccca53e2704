#include <CLI/App.hpp>
#include <cstdint>

#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "runtime/RemarkContext.h"

namespace quorvel::cli {
namespace {

// Without an event loop of its own this program cannot keep a modeless window open.
constexpr std::int32_t kModal = 1;

void RunManage() {
  RequireDatabase("quorvel.manage");
  RemarkContext::Create()->ViewManager(kModal);
}

}  // namespace

void AddManageCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("manage", "Open the window for users, rights and remark types");
  command->group("Set up")->callback(RunManage);
}

}  // namespace quorvel::cli
