#include <CLI/App.hpp>
#include <filesystem>
#include <memory>

#include <fmt/format.h>

#include "data/Schema.h"
#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/ScriptRunner.h"
#include "platform/Error.h"
#include "platform/ado/embedded/EmbeddedEngine.h"

namespace quorvel::cli {
namespace {

void MakeEmbeddedFile(const std::string& file) {
  const bool wasThere = std::filesystem::exists(file);
  ado::CreateEmbeddedDatabase(file);
  fmt::print("Database file: {} {}\n", wasThere ? "found" : "created", file);
}

void ApplyScript(std::string_view what, std::string_view script, std::string_view lastTable) {
  ado::Connection& connection = *modDatabase::SharedConnection();
  const bool wasThere = TableProblem(connection, lastTable, "*").empty();
  RunScript(connection, what, script);
  fmt::print("{}: {}\n", what, wasThere ? "up to date" : "created");
}

void RunInit(bool withSample) {
  RequireSettings("quorvel.init");
  DBConnect& settings = modDatabase::Settings();
  if (ado::IsEmbedded(settings.Server())) MakeEmbeddedFile(settings.Database());
  modDatabase::EnsureConnection();
  ApplyScript("Schema", SchemaScript(), "ttwContext");
  if (withSample) ApplyScript("Sample data", SampleScript(), "Customer");
}

}  // namespace

void AddInitCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("init", "Create the tables and procedures that are missing");
  auto withSample = std::make_shared<bool>(false);
  command->add_flag("--sample", *withSample, "Add sample customers, users, rights and remarks");
  command->group("Set up")->callback([withSample] { RunInit(*withSample); });
}

}  // namespace quorvel::cli
