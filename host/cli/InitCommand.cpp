#include <CLI/App.hpp>
#include <chrono>
#include <filesystem>
#include <memory>

#include <fmt/format.h>

#include "ado/embedded/EmbeddedEngine.h"
#include "data/Schema.h"
#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/SchemaProblems.h"
#include "host/cli/ScriptRunner.h"
#include "host/cli/Table.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

void MakeEmbeddedFile(const std::string& file) {
  const bool wasThere = std::filesystem::exists(file);
  ado::CreateEmbeddedDatabase(file);
  fmt::print("Database file: {} {}\n", wasThere ? "found" : "created", OneLine(file));
}

struct InitOptions {
  bool withSample = false;
  bool withGrants = false;
};

constexpr std::string_view kLoginAdvice =
    "\n  If the login may not do this, run it as a member of db_owner, or have a DBA run the scripts of data/schema.";

/// On a server our scripts fail nearly always because the login lacks a permission.
bool IsRefusal(const Error& error) {
  return !UsesEmbeddedEngine() &&
         (error.Number() == ErrorNumber::DbStatement || error.Number() == ErrorNumber::DbObjectNotFound);
}

void ApplyScript(ado::Connection& connection, std::string_view what, std::string_view script,
                 const ScriptOutput& output = {}) {
  try {
    RunScript(connection, what, script, output);
  } catch (const Error& error) {
    if (!IsRefusal(error)) throw;
    throw Error(error.Number(), error.Source(), fmt::format("{}{}", error.Description(), kLoginAdvice));
  }
}

void CreateMissing(ado::Connection& connection, std::string_view what, std::string_view script,
                   std::string_view lastTable) {
  const bool wasThere = TableProblem(connection, lastTable).empty();
  ApplyScript(connection, what, script);
  fmt::print("{}: {}\n", what, wasThere ? "up to date" : "created");
}

void Grant(ado::Connection& connection) {
  ScriptOutput output;
  output.rows = [](ado::Recordset& rows) {
    if (rows.EndOfFile()) return;
    fmt::print("Yet to be run, after a look at each name:\n\n");
    PrintTable(rows);
  };
  ApplyScript(connection, "Grants", GrantsScript(), output);
  fmt::print(
      "Grants: given to the role QuorvelUser; make the component's login a member:\n"
      "  ALTER ROLE QuorvelUser ADD MEMBER [login]\n");
}

void RunInit(const InitOptions& options) {
  const std::string source = "quorvel.init";
  RequireSettings(source);
  const bool isEmbedded = UsesEmbeddedEngine();
  if (options.withGrants && isEmbedded) {
    throw Error(ErrorNumber::Component, source,
                "The embedded engine has no users to grant anything to; --grants is for a SQL Server");
  }
  if (isEmbedded) MakeEmbeddedFile(modDatabase::Settings().Database());
  const auto connection = ConnectForSetUp(std::chrono::seconds(60));
  CreateMissing(*connection, "Schema", SchemaScript(), "ttwContext");
  if (options.withSample) CreateMissing(*connection, "Sample data", SampleScript(), "Customer");
  if (options.withGrants) Grant(*connection);
}

}  // namespace

void AddInitCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("init", "Create the tables and procedures that are missing");
  auto options = std::make_shared<InitOptions>();
  command->add_flag("--sample", options->withSample, "Add sample customers, users, rights and remarks");
  command->add_flag("--grants", options->withGrants,
                    "On a SQL Server, make the role QuorvelUser with\nwhat the component's login needs");
  command->group("Set up")->callback([options] { RunInit(*options); });
}

}  // namespace quorvel::cli
