#include "ado/Connection.h"

#include <algorithm>
#include <utility>

#include "ado/ConnectionString.h"
#include "ado/engine/AdoError.h"
#include "platform/Error.h"

namespace quorvel::ado {
namespace {

bool EndsConnection(const Diagnostic& record) {
  constexpr std::int32_t kReadOnlyDatabase = 3906;  // SQL Server's number; the embedded engine uses it too
  return record.sqlState.starts_with("08") || record.nativeError == kReadOnlyDatabase;
}

}  // namespace

Connection::Connection(SessionOpener opener) : m_opener(std::move(opener)) {}

template <typename Operation>
auto Connection::Guard(const Operation& operation) {
  try {
    return operation();
  } catch (const DriverError& failure) {
    Raise(failure.Records());
  }
}

void Connection::Open(std::string_view userId, std::string_view password, int /*options*/) {
  if (IsOpen()) ThrowAdoError(ErrorNumber::AdoObjectOpen);
  ConnectOptions options = ParseConnectionString(m_connectionString);
  if (!userId.empty()) options.userId = userId;
  if (!password.empty()) options.password = password;
  options.connectionTimeout = m_connectionTimeout;
  options.commandTimeout = m_commandTimeout;
  m_source = SourceOfEngine(options.dataSource);
  m_session = Guard([&] { return m_opener(options); });
  m_isLost = false;
}

bool Connection::IsFile() const noexcept { return m_source == SourceOfEngine(kEmbeddedDataSource); }

void Connection::SetCommandTimeout(std::chrono::seconds timeout) {
  if (IsOpen()) Guard([&] { m_session->SetCommandTimeout(timeout); });
  m_commandTimeout = timeout;
}

std::shared_ptr<Recordset> Connection::Execute(std::string_view batch, int /*options*/) {
  return std::make_shared<Recordset>(shared_from_this(), Run(batch).rows);
}

Connection::Reading::Reading(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {
  if (m_connection) m_connection->OpenedSession().BeginReading();
}

Connection::Reading::~Reading() {
  if (m_connection) m_connection->m_session->EndReading();
}

std::string Connection::Describe() { return OpenedSession().Describe(); }

Result Connection::Run(std::string_view batch) {
  Session& session = OpenedSession();
  return KeepMessages(Guard([&] { return session.Execute(batch); }));
}

Result Connection::Call(std::string_view procedure, std::span<Parameter> parameters, Access access) {
  Session& session = OpenedSession();
  return KeepMessages(Guard([&] { return session.Call(procedure, parameters, access); }));
}

std::vector<Outcome> Connection::CallTogether(std::span<const ReadingCall> calls) {
  Session& session = OpenedSession();
  std::vector<Outcome> outcomes = Guard([&] { return session.CallTogether(calls); });
  for (const Outcome& outcome : outcomes) {
    if (const auto* failure = std::get_if<DriverError>(&outcome)) NoteLoss(failure->Records());
  }
  return outcomes;
}

std::shared_ptr<Recordset> Connection::Take(Outcome outcome) {
  if (const auto* failure = std::get_if<DriverError>(&outcome)) Raise(failure->Records());
  Result result = KeepMessages(std::get<Result>(std::move(outcome)));
  return std::make_shared<Recordset>(shared_from_this(), std::move(result.rows));
}

std::vector<ParameterInfo> Connection::DiscoverParameters(std::string_view procedure) {
  Session& session = OpenedSession();
  return Guard([&] { return session.DiscoverParameters(procedure); });
}

void Connection::ForgetParameters() { OpenedSession().ForgetParameters(); }

Session& Connection::OpenedSession() {
  if (!IsOpen()) ThrowAdoError(ErrorNumber::AdoObjectClosed);
  return *m_session;
}

Result Connection::KeepMessages(Result result) {
  if (!result.messages.empty()) Record(result.messages);
  return result;
}

void Connection::Raise(const std::vector<Diagnostic>& records) {
  Record(records);
  NoteLoss(records);
  const ProviderError& first = m_errors.front();
  throw Error(first.number, first.source, first.description);
}

void Connection::NoteLoss(const std::vector<Diagnostic>& records) {
  m_isLost = m_isLost || std::ranges::any_of(records, EndsConnection);
}

void Connection::Record(const std::vector<Diagnostic>& records) {
  m_errors.clear();
  for (const Diagnostic& record : records) {
    m_errors.push_back(MakeProviderError(record, m_source));
  }
}

}  // namespace quorvel::ado
