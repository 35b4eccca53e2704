#include <CLI/App.hpp>
#include <chrono>
#include <memory>

#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/Input.h"
#include "host/cli/ScriptRunner.h"
#include "host/cli/Table.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

void RunFile(const std::string& file) {
  const std::string source = "quorvel.run";
  RequireSettings(source);
  const std::string script = ReadWhole(file, source);
  const auto connection = ConnectForSetUp(std::chrono::seconds(60));
  std::size_t tables = 0;
  ScriptOutput output;
  output.rows = [&tables](ado::Recordset& rows) {
    if (tables++ > 0) fmt::print("\n");
    PrintTable(rows);
  };
  output.message = [](const std::string& text) { fmt::print("{}\n", Printable(text)); };
  const std::size_t batches = RunScript(*connection, file == "-" ? "standard input" : file, script, output);
  if (tables == 0) fmt::print("{}\n", batches == 1 ? "1 batch run" : fmt::format("{} batches run", batches));
}

}  // namespace

void AddRunCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("run", "Run a T-SQL script on the database");
  auto file = std::make_shared<std::string>();
  command
      ->add_option("file", *file,
                   "The script, its batches ended by GO; - reads the standard input.\nOf each batch the first result "
                   "and a server's messages are shown.")
      ->required();
  command->group("Set up")->callback([file] { RunFile(*file); });
}

}  // namespace quorvel::cli
