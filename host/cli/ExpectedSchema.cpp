// A reader for the form in which our own scripts are written: grants.sql has one GRANT per line; quorvel.sql has one
// column or parameter per line. It is no parser for other scripts.

#include "host/cli/ExpectedSchema.h"

#include <algorithm>
#include <string>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "data/Schema.h"

namespace quorvel::cli {
namespace {

/// The text between `open` and the next `close`; empty when the script has no `open`.
std::string_view Between(std::string_view script, std::string_view open, std::string_view close) {
  const auto found = script.find(open);
  if (found == std::string_view::npos) return {};
  script.remove_prefix(found + open.size());
  return script.substr(0, script.find(close));
}

/// The parts of a text, each without the blanks around it; empty parts are left out.
std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    const auto first = part.find_first_not_of(' ');
    if (first != std::string_view::npos) parts.emplace_back(part.substr(first, part.find_last_not_of(' ') + 1 - first));
  }
  return parts;
}

/// The objects on which grants.sql grants a permission as a whole.
std::vector<std::string> GrantedObjects(const std::string& permission) {
  const std::string grant = fmt::format("GRANT {} ON ", permission);
  std::vector<std::string> objects;
  for (const std::string& line : Split(GrantsScript(), '\n')) {
    if (line.starts_with(grant)) objects.emplace_back(Between(line, grant, " "));
  }
  return objects;
}

/// The lines between the brackets of CREATE TABLE.
std::vector<std::string> TableLines(std::string_view table) {
  return Split(Between(SchemaScript(), fmt::format("CREATE TABLE {} (", table), ");\n"), '\n');
}

std::string FirstWord(const std::string& line) { return line.substr(0, line.find(' ')); }

std::vector<std::string> ColumnsOf(const std::string& table) {
  std::vector<std::string> columns;
  for (const std::string& line : TableLines(table)) {
    const std::string word = FirstWord(line);
    if (word != "CONSTRAINT" && word != "--") columns.push_back(word);
  }
  return columns;
}

std::string ParametersOf(const std::string& procedure) {
  std::vector<std::string> parameters;
  for (const std::string& line :
       Split(Between(SchemaScript(), fmt::format(" PROCEDURE {}\n", procedure), "\nAS\n"), '\n')) {
    if (!line.starts_with('@')) continue;
    const bool isOutput = line.find(" OUTPUT") != std::string::npos;
    parameters.push_back(line.substr(0, line.find(' ')) + (isOutput ? " OUTPUT" : ""));
  }
  return fmt::format("{}", fmt::join(parameters, ", "));
}

std::vector<ExpectedTable> ReadTables() {
  std::vector<ExpectedTable> tables;
  for (const std::string& name : GrantedObjects("SELECT")) {
    const std::string_view written = Between(GrantsScript(), fmt::format("GRANT UPDATE ON {} (", name), ")");
    tables.push_back({name, ColumnsOf(name), Split(written, ',')});
  }
  return tables;
}

std::vector<ExpectedProcedure> ReadProcedures() {
  std::vector<ExpectedProcedure> procedures;
  for (const std::string& name : GrantedObjects("EXECUTE")) procedures.push_back({name, ParametersOf(name)});
  return procedures;
}

}  // namespace

const std::vector<ExpectedTable>& ExpectedTables() {
  static const std::vector<ExpectedTable> tables = ReadTables();
  return tables;
}

const std::vector<ExpectedProcedure>& ExpectedProcedures() {
  static const std::vector<ExpectedProcedure> procedures = ReadProcedures();
  return procedures;
}

ExpectedTable TableOfProcedures(std::string_view name) {
  std::string table(name);
  auto columns = ColumnsOf(table);
  return {std::move(table), std::move(columns), {}};
}

std::string ColumnDefinition(std::string_view table, std::string_view column) {
  for (std::string line : TableLines(table)) {
    if (FirstWord(line) != column) continue;
    if (line.ends_with(',')) line.pop_back();
    return line;
  }
  return {};
}

int ExpectedLayoutVersion() {
  return std::stoi(std::string(Between(SchemaScript(), "INSERT INTO ttwLayout (LayoutVersion) VALUES (", ")")));
}

}  // namespace quorvel::cli
