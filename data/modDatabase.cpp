// All database calls of the component pass through this module. Each thread has its own connection, so nothing is
// locked. A connection that fails for good is dropped at the end of the call, and the next call opens another. Only
// LoadRst, which reads, tries again by itself: a repeated write could write twice.

#include "data/modDatabase.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "data/modControls.h"
#include "data/modWaitCursor.h"
#include "platform/AtScopeEnd.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "platform/PerThread.h"
#include "platform/Text.h"

namespace quorvel::modDatabase {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kLongestId = 30;
constexpr std::size_t kMostPairs = 6;

struct State {
  std::shared_ptr<ado::Connection> connection;
  bool isLost = false;  ///< there was a connection, and the next call opens another
  std::uint32_t lostFiles = 0;
  bool keepsParameters = false;  ///< a KeptParameters lives
  std::chrono::seconds connectionTimeout = 3600s;
  DBConnect settings;
};

void LetGo(State& state) {
  if (state.connection && state.connection->IsFile()) ++state.lostFiles;
  state.connection = nullptr;
  state.isLost = true;
}

/// The shared connection, opened again after a loss; null before the first EnsureConnection. Keep it during a call:
/// while that waits, code of the host may make another connection the shared one.
std::shared_ptr<ado::Connection> UsableConnection() {
  if (PerThread<State>().isLost) OpenConnection();
  return SharedConnection();
}

/// Drops a lost connection at the end of the scope.
auto DropLostConnection() {
  return AtScopeEnd([&state = PerThread<State>()] {
    if (state.connection && state.connection->IsLost()) LetGo(state);
  });
}

ado::Command ProcedureCall(std::string_view procName) {
  ado::Command command;
  command.SetActiveConnection(UsableConnection());
  command.SetCommandType(ado::CommandType::StoredProcedure);
  command.SetCommandText(std::string(procName));
  return command;
}

/// The driver's first record of the error with which the last call failed; null for an error that arose here.
const ado::ProviderError* RecordOf(const Error& error) {
  const auto& connection = SharedConnection();
  if (!connection || connection->Errors().empty()) return nullptr;
  const ado::ProviderError& first = connection->Errors().front();
  return first.number == error.Number() ? &first : nullptr;
}

bool IsAboutParameters(const ado::ProviderError& record) {
  // SQL Server's numbers: one is missing, of another type, too many, unknown, or there should be none. The state is
  // that of a driver that cannot leave out a parameter.
  constexpr std::array kServerErrors = {201, 8114, 8144, 8145, 8146};
  return record.sqlState == "07S01" || std::ranges::count(kServerErrors, record.nativeError) != 0;
}

/// Whether a call failed, before anything was done, because its parameters are not the procedure's.
bool IsAboutParameters(const Error& error) {
  switch (error.Number()) {
    case ErrorNumber::Overflow:
    case ErrorNumber::TypeMismatch:
    case ErrorNumber::AdoItemNotFound:
    case ErrorNumber::AdoDataConversion:
      return true;
    default:
      break;
  }
  const ado::ProviderError* const record = RecordOf(error);
  return record != nullptr && IsAboutParameters(*record);
}

void ForgetParametersUnlessKept() {
  const auto& state = PerThread<State>();
  if (state.connection && !state.keepsParameters) state.connection->ForgetParameters();
}

/// Runs `call` with a command whose parameters are discovered. The procedure may have been changed since the connection
/// asked for them; then they are asked again, once.
template <typename Call>
auto CallDiscovered(std::string_view procName, const Call& call) {
  const modWaitCursor::BusyPointer busy;
  const auto dropped = DropLostConnection();
  ado::Command command = ProcedureCall(procName);
  ForgetParametersUnlessKept();
  try {
    return call(command);
  } catch (const Error& error) {
    if (!IsAboutParameters(error) || !command.DiscoverAgain()) throw;
  }
  return call(command);
}

/// The result of one try: the recordset, or the error that prevented it. Neither means that the statement succeeded
/// while the connection's Errors hold entries.
struct Attempt {
  std::shared_ptr<ado::Recordset> recordset;
  std::optional<Error> failure;
};

Attempt TryToOpen(std::string_view sql) {
  auto recordset = std::make_shared<ado::Recordset>();
  try {
    recordset->Open(sql, SharedConnection());
  } catch (const Error& error) {
    return {nullptr, error};
  }
  if (!SharedConnection()->Errors().empty()) recordset = nullptr;
  return {std::move(recordset), std::nullopt};
}

Attempt TryTwiceToOpen(std::string_view sql) {
  const modWaitCursor::BusyPointer busy;
  Attempt attempt = TryToOpen(sql);
  if (attempt.recordset) return attempt;
  OpenConnection();
  return TryToOpen(sql);
}

std::string LoadReport(std::string_view sql, const std::optional<Error>& failure) {
  std::string report = failure ? fmt::format("{}\r\nSQL={}", failure->Description(), sql) : "Unknown error in LoadRst";
  const auto& errors = SharedConnection()->Errors();
  if (!errors.empty()) report += "\r\nAdditional Information:\r\n";
  // The report never shows the provider's numbers: users know it with this 0.
  for (const ado::ProviderError& error : errors) report += fmt::format("ErrMsg 0: {}\r\n", error.description);
  return report;
}

}  // namespace

void EnsureConnection() {
  if (!SharedConnection()) OpenConnection();
}

void OpenConnection() {
  auto& state = PerThread<State>();
  LetGo(state);
  auto connection = std::make_shared<ado::Connection>();
  connection->SetConnectionString(Settings().ConnectionString());
  connection->SetCursorLocation(ado::CursorLocation::Client);
  connection->SetMode(ado::ConnectMode::ReadWrite);
  connection->SetCommandTimeout(60s);
  connection->SetConnectionTimeout(state.connectionTimeout);
  connection->Open({}, {}, ado::kUnspecified);
  state.connection = std::move(connection);
  state.isLost = false;
}

void SetConnectionTimeout(std::chrono::seconds timeout) { PerThread<State>().connectionTimeout = timeout; }

const std::shared_ptr<ado::Connection>& SharedConnection() { return PerThread<State>().connection; }

std::uint32_t LostFiles() { return PerThread<State>().lostFiles; }

DBConnect& Settings() { return PerThread<State>().settings; }

std::shared_ptr<ado::Recordset> LoadRst(std::string_view sql) {
  const auto dropped = DropLostConnection();
  const Attempt attempt = TryTwiceToOpen(sql);
  if (!attempt.recordset) {
    CurrentPrompts().ShowMessage(LoadReport(sql, attempt.failure), "Database Error in LoadRst", PromptButtons::Ok,
                                 PromptIcon::None);
  }
  return attempt.recordset;
}

std::shared_ptr<ado::Recordset> LoadDisconnectedRst(std::string_view sql) {
  auto recordset = LoadRst(sql);
  if (recordset) recordset->SetActiveConnection(nullptr);
  return recordset;
}

KeptParameters::KeptParameters() : m_wereKept(PerThread<State>().keepsParameters) {
  ForgetParametersUnlessKept();
  PerThread<State>().keepsParameters = true;
}

KeptParameters::~KeptParameters() { PerThread<State>().keepsParameters = m_wereKept; }

std::shared_ptr<ado::Recordset> ExecSP(std::string_view procName, std::initializer_list<NamedValue> pairs) {
  if (pairs.size() > kMostPairs) ThrowInvalidCall();
  return CallDiscovered(procName, [&](ado::Command& command) {
    for (const auto& [name, value] : pairs) {
      if (!name.empty()) command.Parameters(name).SetValue(value);
    }
    return command.Execute(ado::kUnspecified);
  });
}

std::shared_ptr<ado::Recordset> ExecDeclaredSP(std::string_view procName, std::vector<ado::Parameter> parameters) {
  const modWaitCursor::BusyPointer busy;
  const auto dropped = DropLostConnection();
  ado::Command command = ProcedureCall(procName);
  command.SetAccess(ado::Access::Read);
  for (ado::Parameter& parameter : parameters) command.Append(std::move(parameter));
  return command.Execute(ado::kUnspecified);
}

void DeclaredCalls::Add(std::string procName, std::vector<ado::Parameter> parameters) {
  m_calls.push_back({std::move(procName), std::move(parameters)});
}

std::shared_ptr<ado::Recordset> DeclaredCalls::Next() {
  if (m_next == 0) SendTogether();
  const std::size_t number = m_next++;
  if (number >= m_outcomes.size()) {
    ado::ReadingCall& call = m_calls.at(number);
    return ExecDeclaredSP(call.procedure, std::move(call.parameters));
  }
  return m_connection->Take(std::move(m_outcomes[number]));
}

void DeclaredCalls::SendTogether() {
  const modWaitCursor::BusyPointer busy;
  const auto dropped = DropLostConnection();
  m_connection = UsableConnection();
  if (m_connection) m_outcomes = m_connection->CallTogether(m_calls);
}

ado::Connection::Reading BeginReading() { return ado::Connection::Reading(SharedConnection()); }

std::int32_t GetNextSurrogateKey(std::string_view tableName) {
  return ToInt32(CallDiscovered("spGetNextSurrogateKey", [&](ado::Command& command) {
    command.Parameters("@iTableName").SetValue(std::string(tableName));
    command.Execute(ado::kUnspecified);
    return command.Parameters("@oNewKey").Value();
  }));
}

void UpdateField(std::string_view table, std::string_view column, const Value& value, std::string_view keyColumn,
                 const Value& keyValue, std::string_view keyColumn2, const Value& keyValue2) {
  // An error leaves the wait pending: the caller's handler resets it.
  modWaitCursor::BeginWait();
  std::string statement = fmt::format("UPDATE {}\r\nSET {} = {}\r\nWHERE {} = {}", table, column, SqlValue(value),
                                      keyColumn, SqlValue(keyValue));
  if (!keyColumn2.empty()) statement += fmt::format(" and {} = {}", keyColumn2, SqlValue(keyValue2));
  const auto dropped = DropLostConnection();
  const auto connection = UsableConnection();
  if (!connection) ThrowObjectNotSet();
  connection->Execute(statement, ado::kUnspecified);
  modWaitCursor::EndWait();
}

std::string SqlValue(const Value& value) {
  if (IsText(value)) return fmt::format("'{}'", ToText(value));
  // Flag columns hold numbers, and SQL would read the word True as a column name.
  if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "1" : "0";
  return ToText(value);
}

bool WasNotSent(const Error& error) { return SharedConnection() && RecordOf(error) == nullptr; }

bool IsDuplicateKey(const Error& error) {
  constexpr std::array kServerErrors = {2627, 2601};  // a constraint, a unique index
  const auto& connection = SharedConnection();
  return error.Number() == ErrorNumber::DbIntegrity && connection &&
         std::ranges::any_of(connection->Errors(), [&](const ado::ProviderError& record) {
           return std::ranges::count(kServerErrors, record.nativeError) != 0;
         });
}

void GetNewID(std::string_view entityName, std::string& id) {
  id.clear();
  while (true) {
    const auto answer =
        CurrentPrompts().AskText(fmt::format("{} ID", entityName), fmt::format("Create New {}", entityName));
    const std::string_view trimmed = answer ? TrimBlanks(*answer) : std::string_view{};
    if (CountCharacters(trimmed) <= kLongestId) {
      id = trimmed;
      return;
    }
    CurrentPrompts().ShowMessage(
        fmt::format("The max length for {} ID is 30. Please enter ID within 30 chars", entityName), "Max Length of ID",
        PromptButtons::Ok, PromptIcon::Exclamation);
  }
}

std::string FieldText(const ado::Field& field) {
  const Value value = field.Value();
  return IsNull(value) ? std::string() : ToText(value);
}

std::string StripChars(std::string_view text) {
  constexpr std::string_view kRefused = "-/\\\"'\t*?%<";
  std::string kept(text);
  std::erase_if(kept, [&](char c) { return kRefused.find(c) != std::string_view::npos; });
  return kept;
}

void FillList(ItemList& list, std::int32_t count, std::string_view displayField, std::string_view keyField,
              const std::shared_ptr<ado::Recordset>& rs) {
  list.Clear();
  modControls::AddRows(list, count, displayField, keyField, rs);
}

}  // namespace quorvel::modDatabase
