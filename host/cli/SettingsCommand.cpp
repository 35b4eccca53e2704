#include <CLI/App.hpp>
#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "ado/OpenSession.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/FileAccess.h"
#include "host/cli/Input.h"
#include "host/cli/Secrets.h"
#include "host/cli/Terminal.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr const char* kHiddenArgument = "An argument (not repeated here, because it may be a password)";

using Assignments = std::map<SettingIndex, std::string>;

SettingIndex FindSetting(std::string_view name) {
  const auto* const found = std::find_if(kSettingNames.begin(), kSettingNames.end(),
                                         [&](std::string_view known) { return EqualIgnoringCase(known, name); });
  if (found == kSettingNames.end()) {
    throw CLI::ValidationError(
        fmt::format("{} names no setting; the settings are {}", kHiddenArgument, fmt::join(kSettingNames, ", ")));
  }
  return static_cast<SettingIndex>(found - kSettingNames.begin());
}

/// A database file's name may have any bytes, and a password any keys.
void CheckValue(SettingIndex index, const std::string& value) {
  const std::string name = fmt::format("The value of {}", kSettingNames.at(index));
  if (index != kDatabaseIndex) RequireUtf8(value, name, "quorvel.settings");
  if (index == kPasswordIndex || WithoutPassword(value) == value) return;
  throw CLI::ValidationError(
      fmt::format("{} (not repeated here) has a password after a semicolon. Nothing was written. Give the password "
                  "with --password-stdin or as Password=",
                  name));
}

Assignments ReadAssignments(const std::vector<std::string>& arguments) {
  Assignments assignments;
  for (const std::string& argument : arguments) {
    const auto equals = argument.find('=');
    if (equals == std::string::npos) throw CLI::ValidationError(fmt::format("{} is not NAME=VALUE", kHiddenArgument));
    const SettingIndex index = FindSetting(argument.substr(0, equals));
    const std::string value = argument.substr(equals + 1);
    CheckValue(index, value);
    assignments[index] = value;
  }
  return assignments;
}

/// A relative file name refers to the current folder, and a later command may run in another one.
void MakeDatabaseAbsolute(Assignments& assignments) {
  SettingValues values = ReadSettings().value_or(SettingValues{});
  for (const auto& [index, value] : assignments) values.at(index) = value;
  const std::string& database = values.at(kDatabaseIndex);
  const bool concernsFile = assignments.contains(kServerIndex) || assignments.contains(kDatabaseIndex);
  if (!concernsFile || !ado::IsEmbedded(values.at(kServerIndex)) || database.empty()) return;
  const std::string file = std::filesystem::absolute(database).lexically_normal().string();
  RequireFileName(file, "quorvel.settings");
  // A stored name that needs no change is not written: another program may set it meanwhile.
  if (file != database) assignments[kDatabaseIndex] = file;
}

/// The value with asterisks for a password.
std::string Shown(std::size_t index, const std::string& value) {
  if (index != kPasswordIndex) return WithoutPassword(value);
  return value.empty() ? "" : "****";
}

void PrintSettings() {
  const auto values = ReadSettings();
  for (std::size_t i = 0; i < kSettingNames.size(); ++i) {
    fmt::print("{}={}\n", kSettingNames.at(i), values ? OneLine(Shown(i, values->at(i))) : "");
  }
  const std::string place = registry::StoreLocation();
  if (values) {
    fmt::print("Kept in {}{}\n", OneLine(place), WhichMayRead(place));
  } else {
    fmt::print("Cannot be read, or is not a file of settings: {}\n", OneLine(place));
  }
  for (const std::string& problem : SettingsProblems()) fmt::print("Warning: {}\n", Printable(problem));
}

/// A password among the arguments would be seen by every user who lists the processes, and stay in the shell's history.
/// An input without a line is that of a program that has failed: it must not erase the stored password.
std::string ReadPassword() {
  const std::optional<std::string> line =
      IsInputTerminal() ? AskSecret("Password: ") : ReadInputLine("quorvel.settings");
  if (line && line->find('\n') == std::string::npos) return *line;
  if (line) {
    throw Error(ErrorNumber::Component, "quorvel.settings",
                "The standard input has more than one line, and a password is one; nothing was written.");
  }
  throw Error(ErrorNumber::Component, "quorvel.settings",
              "No password was given, and nothing was written. An empty line stands for an empty password.");
}

/// A connection would fail, with an error about a text that the user has never seen.
void RequireReadable(SettingIndex index, const std::string& value) {
  if (IsReadable(value)) return;
  throw Error(
      ErrorNumber::Component, "quorvel.settings",
      fmt::format("The value of {} has a semicolon or a quotation mark where no connection can read it; nothing was "
                  "written. Put the value in double quotes, and write each of these inside it twice",
                  kSettingNames.at(index)));
}

void RunSettings(const std::vector<std::string>& arguments, bool asksForPassword) {
  Assignments assignments = ReadAssignments(arguments);
  if (asksForPassword && assignments.contains(kPasswordIndex)) {
    throw CLI::ValidationError("Password= and --password-stdin exclude each other");
  }
  if (asksForPassword) assignments[kPasswordIndex] = ReadPassword();
  if (!assignments.empty()) {
    MakeDatabaseAbsolute(assignments);
    for (const auto& [index, value] : assignments) RequireReadable(index, value);
    WriteSettings(assignments);
  }
  PrintSettings();
}

}  // namespace

void AddSettingsCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("settings", "Show or set where the database is");
  auto arguments = std::make_shared<std::vector<std::string>>();
  auto asksForPassword = std::make_shared<bool>(false);
  command->add_option("setting", *arguments,
                      "Server=, Database=, UserId= or Password= followed by the value.\n"
                      "The server (embedded) is a database file on this machine, named\n"
                      "by Database; any other name is a SQL Server. For that one a value\n"
                      "with a semicolon needs quotes, as in 'Password=\"a;b\"', and\n"
                      "Driver= and Encrypt= may follow another value, as in\n"
                      "'Database=Ledger; Encrypt=yes'.");
  command->add_flag("--password-stdin", *asksForPassword,
                    "Read the password from the standard input, at a terminal\n"
                    "without showing it. Other users can see an argument for a\n"
                    "moment, and the shell keeps it in its history.");
  command->group("Set up")->callback([arguments, asksForPassword] { RunSettings(*arguments, *asksForPassword); });
}

}  // namespace quorvel::cli
