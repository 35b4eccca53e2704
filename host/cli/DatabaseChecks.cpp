// The part of the doctor that needs an open connection. A problem of one object is a failed check and the next object
// follows; only a lost connection ends the checks.

#include "host/cli/DatabaseChecks.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "data/modDatabase.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/PermissionChecks.h"
#include "host/cli/ReadingProcedures.h"
#include "host/cli/SchemaProblems.h"
#include "host/cli/ShippedProcedures.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel::cli {
namespace {

constexpr std::string_view kRunInit = "Run 'quorvel init' to create what is missing.";
/// The advice for a missing object. A server also hides existing objects from a login without permissions.
std::string_view SchemaRemedy() { return UsesEmbeddedEngine() ? kRunInit : kAskAdministrator; }

/// One check of something in the database.
bool CheckObject(Report& report, const ado::Connection& connection, std::string_view what, const std::string& problem,
                 std::string_view remedy) {
  if (!problem.empty()) RequireConnection(connection, problem);
  return report.Check(what, problem, remedy);
}

void CheckTable(Report& report, ado::Connection& connection, const ExpectedTable& table) {
  const std::string what = fmt::format("table {}", table.name);
  const std::string problem = TableProblem(connection, table);
  const auto missing = problem.empty() ? std::vector<std::string>() : MissingColumns(connection, table);
  if (missing.empty()) {
    CheckObject(report, connection, what, problem, SchemaRemedy());
  } else {
    report.Check(what, "it " + MissingColumnsProblem(missing), MissingColumnsRemedy(table, missing));
  }
}

void CheckLayout(Report& report, ado::Connection& connection) {
  if (!TableProblem(connection, TableOfProcedures(kLayoutTable)).empty()) return;  // reported as a table
  int found = 0;
  try {
    found = FindLayoutVersion(connection);
  } catch (const Error& error) {
    RequireConnection(connection, error.Description());
    throw;
  }
  const int expected = ExpectedLayoutVersion();
  report.Check(fmt::format("layout version {}", found),
               found == expected ? "" : fmt::format("this program knows {}", expected),
               found > expected ? "Use the program of the version that has set the database up." : SchemaRemedy());
}

/// The advice for a failure of something that reads tables. Where a column is missing, `init` fails as well.
std::string_view ReadingRemedy(std::string_view problem) {
  if (!UsesEmbeddedEngine() || !problem.starts_with("Invalid column name")) return SchemaRemedy();
  return "A table lacks this column; see the tables above.";
}

std::string AdaptedRemedy(std::string_view procedure) {
  const std::string remedy = "The host has written it, and 'quorvel init' keeps it. Correct it";
  if (procedure == kKeyProcedure) return remedy + '.';
  return remedy + fmt::format(", or put this version's in its place with 'quorvel init --replace {}'.", procedure);
}

std::string ProcedureRemedy(ado::Connection& connection, std::string_view procedure, std::string_view problem) {
  if (!UsesEmbeddedEngine()) return std::string(SchemaRemedy());
  const auto isForMemos = std::ranges::count(kMemoProcedures, procedure) != 0 || procedure == kKeyProcedure;
  if (isForMemos && TableProblem(connection, kMemoTable).empty() &&
      !TableProblem(connection, TableOfProcedures(kMemoTable)).empty()) {
    return "The host's table of memos has other columns. Write the procedure for them; 'quorvel init' then keeps it "
           "(docs/database.md).";
  }
  if (isForMemos && IsAdapted(connection, procedure)) return AdaptedRemedy(procedure);
  return std::string(ReadingRemedy(problem));
}

/// A condition that no memo should meet, and the advice for one that does.
struct MemoRule {
  std::string_view name;
  std::string_view violation;
  std::string_view remedy;
};

/// Another program can leave such rows in a file of the embedded engine. A remark without a valid date is shown without
/// one; the others are an error of each Load of their record.
constexpr MemoRule kMemoRules[] = {
    {"dates of the memos", "ISDATE(DateStamp) = 0",
     "Give each a date, for example: UPDATE tciMemo SET DateStamp = GETDATE() WHERE MemoKey = N"},
    {"texts and users of the memos", "MemoText IS NULL OR UserID IS NULL",
     "No remark of their records can be shown. Give each a text and a user, for example: "
     "UPDATE tciMemo SET MemoText = ISNULL(MemoText, ''), UserID = ISNULL(UserID, '') WHERE MemoKey = N"},
    {"keys of the memos", "MemoKey > 2147483647 OR MemoKey < -2147483648",
     "No remark of their records can be shown. Give each a free key of 32 bits, for example: "
     "UPDATE tciMemo SET MemoKey = FREE WHERE MemoKey = N"}};

void CheckMemos(Report& report, ado::Connection& connection, const MemoRule& rule) {
  std::vector<std::string> keys;
  try {
    const auto rows = connection.Execute(fmt::format("SELECT TOP (10) MemoKey FROM tciMemo WHERE {}", rule.violation));
    for (; !rows->EndOfFile(); rows->MoveNext()) keys.push_back(modDatabase::FieldText(rows->Fields("MemoKey")));
  } catch (const Error& error) {
    RequireConnection(connection, error.Description());
    return;  // the host's table has other columns
  }
  report.Check(rule.name, keys.empty() ? "" : fmt::format("invalid in MemoKey {}", fmt::join(keys, ", ")), rule.remedy);
}

void CheckKeys(Report& report, ado::Connection& connection) {
  const ExpectedTable table = TableOfProcedures(kKeyTable);
  CheckTable(report, connection, table);
  if (!TableProblem(connection, table).empty()) return;
  const auto counter =
      connection.Execute(fmt::format("SELECT LastKey FROM {} WHERE TableName = '{}'", kKeyTable, kMemoTable));
  if (counter->EndOfFile()) {
    report.Check(fmt::format("counter of {}", kMemoTable), fmt::format("{} has no row for it", kKeyTable), kRunInit);
  }
}

std::string CallProblem(ado::Connection& connection, const ExpectedProcedure& procedure) {
  std::string problem = ProcedureProblem(connection, procedure);
  if (problem.empty()) problem = ReadingProblem(connection, procedure.name);
  return WithPermission(connection, procedure.name, std::move(problem));
}

/// On a server the component's login needs no permission on the table itself: the procedures reach it.
void CheckMemoTable(Report& report, ado::Connection& connection) {
  if (UsesEmbeddedEngine()) {
    CheckObject(report, connection, fmt::format("table {}", kMemoTable), TableProblem(connection, kMemoTable),
                kRunInit);
  } else {
    CheckObject(report, connection, fmt::format("table {}, read by a procedure", kMemoTable),
                BatchProblem(connection, "EXEC spTWCqvGetFilteredMemos '', 0, 0"), kAskAdministrator);
  }
}

/// A load may never read the damaged pages of a file, and a backup would keep them. An index that lacks rows hides
/// remarks.
void CheckPages(Report& report, ado::Connection& connection) {
  constexpr const char* kPages = "pages and indexes of the file";
  std::string problem;
  try {
    const auto rows = connection.Execute("SELECT TOP (1) integrity_check FROM pragma_integrity_check");
    problem = rows->EndOfFile() ? "ok" : OneLine(modDatabase::FieldText(rows->Fields("integrity_check")));
    if (problem == "ok") problem.clear();
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::DbTimeout) return Report::Skip(kPages, error.Description());
    problem = error.Description();
  }
  CheckObject(report, connection, kPages, problem, "The file is damaged. Restore it from a backup.");
}

void CheckSchema(Report& report, ado::Connection& connection) {
  for (const ExpectedTable& table : ExpectedTables()) {
    CheckTable(report, connection, table);
  }
  CheckLayout(report, connection);
  CheckMemoTable(report, connection);
  if (UsesEmbeddedEngine()) {
    for (const MemoRule& rule : kMemoRules) CheckMemos(report, connection, rule);
    if (!IsAdapted(connection, kKeyProcedure)) CheckKeys(report, connection);
  }
  for (const ExpectedProcedure& procedure : ExpectedProcedures()) {
    const std::string problem = CallProblem(connection, procedure);
    CheckObject(report, connection, fmt::format("procedure {} ({})", procedure.name, procedure.parameters), problem,
                problem.empty() ? "" : ProcedureRemedy(connection, procedure.name, problem));
  }
}

/// True when the procedure exists.
bool CheckOwnerProcedure(Report& report, ado::Connection& connection, const std::string& entity,
                         const std::string& procedure) {
  const std::string what = fmt::format("owner procedure {}, entity {}", OneLine(procedure), OneLine(entity));
  std::string problem = procedure.empty() ? "the entity names none" : OwnerProcedureProblem(connection, procedure);
  const bool exists = problem.empty();
  if (exists) problem = LookupProblem(connection, procedure);
  CheckObject(report, connection, what, WithPermission(connection, procedure, std::move(problem)),
              "The host application must create it: for an owner it returns a row with OwnerKey and OwnerName, for any "
              "other identifier none. ttwRemarkEntity.spGetOwnerName must hold its name.");
  return exists;
}

/// Returns the permissions that the login needs on the existing ones.
std::vector<Permission> CheckOwnerProcedures(Report& report, ado::Connection& connection) {
  std::vector<Permission> needed;
  try {
    const auto entities = connection.Execute("SELECT RemarkEntityID, spGetOwnerName FROM ttwRemarkEntity");
    for (; !entities->EndOfFile(); entities->MoveNext()) {
      const std::string procedure(TrimBlanks(modDatabase::FieldText(entities->Fields("spGetOwnerName"))));
      const bool exists = CheckOwnerProcedure(report, connection,
                                              modDatabase::FieldText(entities->Fields("RemarkEntityID")), procedure);
      if (exists) needed.push_back({"EXECUTE", procedure, ""});
    }
  } catch (const Error& error) {
    CheckObject(report, connection, "owner procedures", error.Description(), ReadingRemedy(error.Description()));
  }
  return needed;
}

/// From a file that can only be read hosts load remarks, and save none. The last check: the refusal ends the
/// connection.
void CheckWriting(Report& report, ado::Connection& connection) {
  if (!TableProblem(connection, kMemoTable).empty()) return;  // reported as a table
  report.Check("writing to the file", BatchProblem(connection, fmt::format("DELETE FROM {} WHERE 1 = 0", kMemoTable)),
               "Give this user the right to write that file, and the files beside it whose names begin with its name. "
               "The file that ends in -shm can be deleted while no program uses the database.");
}

}  // namespace

void CheckDatabase(Report& report, ado::Connection& connection) {
  try {
    if (UsesEmbeddedEngine()) CheckPages(report, connection);
    CheckSchema(report, connection);
    std::vector<Permission> ownerProcedures = CheckOwnerProcedures(report, connection);
    if (UsesEmbeddedEngine()) {
      CheckWriting(report, connection);
    } else {
      CheckPermissions(report, connection, std::move(ownerProcedures));
    }
  } catch (const LostConnection& lost) {
    report.Check("connection", fmt::format("it was lost: {}", lost.reason),
                 "See that server and network stay up, and run this again. What follows was not checked.");
  }
}

}  // namespace quorvel::cli
