#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "ado/embedded/EmbeddedEngine.h"
#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/FileAccess.h"
#include "host/cli/Installation.h"
#include "host/cli/ShippedProcedures.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

void MakeEmbeddedFile(const std::string& file, const std::string& source) {
  RequireFileName(file, source);
  const bool wasThere = std::filesystem::exists(file);
  ado::CreateEmbeddedDatabase(file);
  fmt::print("Database file: {} {}{}\n", wasThere ? "found" : "created", OneLine(file), WhichMayRead(file));
}

struct InitOptions {
  bool withSample = false;
  bool withGrants = false;
  std::vector<std::string> replaced;
};

void RunInit(const InitOptions& options) {
  const std::string source = "quorvel.init";
  RequireSettings(source);
  const bool isEmbedded = UsesEmbeddedEngine();
  if (options.withGrants && isEmbedded) {
    throw Error(ErrorNumber::Component, source,
                "The embedded engine has no users to grant anything to; --grants is for a SQL Server");
  }
  if (isEmbedded) MakeEmbeddedFile(modDatabase::Settings().Database(), source);
  Installation installation(ConnectForSetUp(std::chrono::seconds(60)), source);
  installation.RequireKnownLayout();
  if (options.withSample) installation.RequireOwnKeys();
  installation.MakeSchema(options.replaced);
  if (options.withSample) installation.AddSample();
  if (options.withGrants) installation.Grant();
  installation.RequireSuccess();
}

}  // namespace

void AddInitCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("init", "Create the tables and procedures that are missing");
  auto options = std::make_shared<InitOptions>();
  command->add_flag("--sample", options->withSample, "Add sample customers, users, rights and remarks");
  command->add_flag("--grants", options->withGrants,
                    "On a SQL Server, make the role QuorvelUser with\nwhat the component's login needs");
  command
      ->add_option(
          "--replace", options->replaced,
          "Put this version's procedure in the place of one that the\nhost has adapted; may be given more than "
          "once")
      ->check(CLI::IsMember(std::vector<std::string>(kMemoProcedures.begin(), kMemoProcedures.end()), CLI::ignore_case))
      ->type_name("NAME");
  command->group("Set up")->callback([options] { RunInit(*options); });
}

}  // namespace quorvel::cli
