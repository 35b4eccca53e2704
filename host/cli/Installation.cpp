// The scripts may be run again at any time, so the work after a failure is never wasted: the next run finds it done.

#include "host/cli/Installation.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "data/Schema.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/SchemaProblems.h"
#include "host/cli/ShippedProcedures.h"
#include "host/cli/Table.h"
#include "host/cli/TextLayout.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::string_view kLoginAdvice =
    "If the login may not do this, run it as a member of db_owner, or have a DBA run the scripts of data/schema.";

/// A server's numbers for a missing permission; it also hides an object that the login has no permission on.
constexpr std::array<std::int32_t, 9> kRefusals = {229, 230, 262, 1088, 2760, 3704, 4902, 15151, 15247};
constexpr std::int32_t kInvalidColumn = 207;

bool IsRefusal(const BatchFailure& failure) {
  return std::find(kRefusals.begin(), kRefusals.end(), failure.nativeNumber) != kRefusals.end();
}

/// Whether the batch gives the procedure its text.
bool Alters(std::string_view batch, std::string_view procedure) {
  return batch.starts_with(fmt::format("ALTER PROCEDURE {}\n", procedure));
}

/// The script makes this procedure only where there is none, so it has no ALTER.
bool CreatesKeyProcedure(std::string_view batch) {
  return batch.find(fmt::format("CREATE PROCEDURE {}\n", kKeyProcedure)) != std::string_view::npos;
}

/// The script's last batch, which says that everything before it is there.
bool WritesLayoutVersion(std::string_view batch) {
  return batch.find(fmt::format("INSERT INTO {} ", kLayoutTable)) != std::string_view::npos;
}

/// The procedure that does not fit the host's table of memos; empty for another failure.
std::string_view ProcedureToAdapt(const BatchFailure& failure) {
  if (failure.nativeNumber != kInvalidColumn) return {};
  if (CreatesKeyProcedure(failure.batch)) return kKeyProcedure;
  const auto* const found = std::find_if(kMemoProcedures.begin(), kMemoProcedures.end(),
                                         [&](std::string_view name) { return Alters(failure.batch, name); });
  return found == kMemoProcedures.end() ? std::string_view() : *found;
}

std::string AdaptAdvice(const std::vector<BatchFailure>& failures) {
  std::vector<std::string_view> names;
  for (const BatchFailure& failure : failures) {
    if (const auto name = ProcedureToAdapt(failure); !name.empty()) names.push_back(name);
  }
  if (names.empty()) return {};
  return fmt::format(
      "\n  The host's table of memos has other columns. Write for them: {}. 'quorvel init' keeps what the host has "
      "written (docs/database.md).",
      fmt::join(names, ", "));
}

WholeScript WholeSchema(std::function<bool(std::string_view batch)> skips) {
  return {"Schema", SchemaScript(), std::move(skips), UsesEmbeddedEngine(), {}};
}

bool Contains(const std::vector<std::string>& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(), [&](const auto& each) { return EqualIgnoringCase(each, name); });
}

/// The procedures that the host has adapted.
struct AdaptedProcedures {
  std::vector<std::string_view> kept;
  std::vector<std::string_view> replaced;
};

AdaptedProcedures FindAdapted(ado::Connection& connection, const std::vector<std::string>& toReplace) {
  AdaptedProcedures found;
  for (const std::string_view name : kMemoProcedures) {
    if (IsAdapted(connection, name)) (Contains(toReplace, name) ? found.replaced : found.kept).push_back(name);
  }
  return found;
}

}  // namespace

void Installation::RequireKnownLayout() {
  const int found = FindLayoutVersion(*m_connection);
  if (found <= ExpectedLayoutVersion()) return;
  throw Error(ErrorNumber::Component, m_source,
              fmt::format("A newer version has set this database up: its layout is {}, and this version knows {}. Use "
                          "the newer version; nothing was changed",
                          found, ExpectedLayoutVersion()));
}

void Installation::RequireOwnKeys() {
  if (!IsAdapted(*m_connection, kKeyProcedure)) return;
  throw Error(ErrorNumber::Component, m_source,
              fmt::format("The database has a {} of the host's own, so it is no place for sample data; nothing was "
                          "changed",
                          kKeyProcedure));
}

void Installation::MakeSchema(const std::vector<std::string>& toReplace) {
  const AdaptedProcedures adapted = FindAdapted(*m_connection, toReplace);
  for (const std::string_view name : adapted.kept) {
    fmt::print("Kept: the host's {}; --replace {} puts this version's in its place\n", name, name);
  }
  const auto isKept = [&](std::string_view batch) {
    return WritesLayoutVersion(batch) || std::any_of(adapted.kept.begin(), adapted.kept.end(),
                                                     [&](std::string_view name) { return Alters(batch, name); });
  };
  Apply("ttwContext", WholeSchema(isKept));
  for (const std::string_view name : adapted.replaced) {
    if (!HasFailedToAlter(name)) fmt::print("Replaced: the host's {}\n", name);
  }
}

bool Installation::HasFailedToAlter(std::string_view procedure) const {
  return std::any_of(m_failures.begin(), m_failures.end(),
                     [&](const BatchFailure& failure) { return Alters(failure.batch, procedure); });
}

void Installation::AddSample() { Apply("Customer", {"Sample data", SampleScript(), {}, UsesEmbeddedEngine(), {}}); }

void Installation::Apply(std::string_view lastTable, const WholeScript& script) {
  const bool wasThere = TableProblem(*m_connection, lastTable).empty();
  const std::size_t before = m_failures.size();
  RunKeeping(script);
  if (script.text == SchemaScript()) FinishSchema();
  const bool isComplete = m_failures.size() == before;
  fmt::print("{}: {}\n", script.name, !isComplete ? "not complete" : wasThere ? "up to date" : "created");
}

void Installation::FinishSchema() {
  FindMissingColumns();
  if (!m_failures.empty()) return;
  const auto isOther = [](std::string_view batch) { return !WritesLayoutVersion(batch); };
  RunKeeping(WholeSchema(isOther));
}

/// A column that was dropped comes back only by hand: the script cannot know what it held.
void Installation::FindMissingColumns() {
  std::vector<ExpectedTable> tables = ExpectedTables();
  if (!IsAdapted(*m_connection, kKeyProcedure)) tables.push_back(TableOfProcedures(kKeyTable));
  for (const ExpectedTable& table : tables) {
    const std::vector<std::string> missing = MissingColumns(*m_connection, table);
    if (missing.empty()) continue;
    const std::string description = fmt::format("Table {} {}. {}", table.name, MissingColumnsProblem(missing),
                                                MissingColumnsRemedy(table, missing));
    m_failures.push_back({Error(ErrorNumber::DbStatement, m_source, description), 0, {}});
  }
}

void Installation::Grant() {
  WholeScript script{"Grants", GrantsScript(), {}, false, {}};
  script.output.rows = [](ado::Recordset& rows) {
    if (rows.EndOfFile()) return;
    fmt::print("Yet to be run, after a look at each name:\n\n");
    PrintTable(rows);
  };
  const std::size_t before = m_failures.size();
  RunKeeping(script);
  if (m_failures.size() > before) return;
  fmt::print(
      "Grants: given to the role QuorvelUser; make the component's login a member:\n"
      "  ALTER ROLE QuorvelUser ADD MEMBER [login]\n");
}

void Installation::RunKeeping(const WholeScript& script) {
  auto failures = RunWholeScript(*m_connection, script);
  std::move(failures.begin(), failures.end(), std::back_inserter(m_failures));
  if (m_connection->IsLost()) RequireSuccess();
}

void Installation::RequireSuccess() const {
  if (m_failures.empty()) return;
  std::string text;
  for (const BatchFailure& failure : m_failures) text += (text.empty() ? "" : "\n") + failure.error.Description();
  if (std::any_of(m_failures.begin(), m_failures.end(), IsRefusal)) text += fmt::format("\n  {}", kLoginAdvice);
  text += AdaptAdvice(m_failures);
  const Error& first = m_failures.front().error;
  throw Error(first.Number(), first.Source(), text);
}

}  // namespace quorvel::cli
