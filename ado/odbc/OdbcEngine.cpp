#include "ado/odbc/OdbcEngine.h"

#include <fmt/format.h>

#include <algorithm>

#include "ado/odbc/DriverConnection.h"
#include "ado/odbc/ProcedureCall.h"
#include "ado/odbc/ProcedureCatalog.h"
#include "ado/odbc/ResultReader.h"

namespace quorvel::ado {
namespace {

using namespace odbc;

/// CREATE, ALTER and DROP PROCEDURE; PROC is the short form.
bool MayChangeProcedures(std::string_view batch) {
  constexpr std::string_view kWord = "proc";
  return std::search(batch.begin(), batch.end(), kWord.begin(), kWord.end(),
                     [](char have, char want) { return have == want || have == want - 'a' + 'A'; }) != batch.end();
}

/// An administrator may have denied sp_executesql, which a single call does not need.
bool IsDenied(const Outcome& outcome) {
  constexpr std::int32_t kPermissionDenied = 229;
  const auto* failure = std::get_if<DriverError>(&outcome);
  return failure != nullptr && failure->Records().front().nativeError == kPermissionDenied;
}

/// A character that the server lacks must fail the call with it alone, and not the whole request.
bool IsAscii(const ReadingCall& call) {
  return std::ranges::all_of(call.parameters, [](const Parameter& parameter) {
    const auto* text = parameter.Given() ? std::get_if<std::string>(&*parameter.Given()) : nullptr;
    return text == nullptr || std::ranges::all_of(*text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  });
}

class OdbcSession final : public Session {
 public:
  explicit OdbcSession(const ConnectOptions& options)
      : m_connection(options),
        m_catalog(m_connection),
        m_timeout(options.commandTimeout),
        m_sendsTogether(m_connection.SendsCallsTogether()) {}

  void SetCommandTimeout(std::chrono::seconds timeout) override { m_timeout = timeout; }

  Result Execute(std::string_view batch) override {
    if (batch.empty()) return {};
    if (MayChangeProcedures(batch)) m_catalog.Forget();
    Statement statement(m_connection, m_timeout);
    statement.ExecuteVerbatim(batch);
    return ReadResults(statement);
  }

  std::vector<ParameterInfo> DiscoverParameters(std::string_view procedure) override {
    return m_catalog.ParametersOf(procedure, m_timeout);
  }

  void ForgetParameters() override { m_catalog.Forget(); }

  Result Call(std::string_view procedure, std::span<Parameter> parameters, Access /*access*/) override {
    Statement statement(m_connection, m_timeout);
    return CallProcedure(statement, procedure, parameters);
  }

  std::vector<Outcome> CallTogether(std::span<const ReadingCall> calls) override {
    if (!m_sendsTogether || !std::ranges::all_of(calls, IsAscii)) return {};
    std::vector<Outcome> outcomes = SendTogether(calls);
    const auto denied = std::ranges::find_if(outcomes, IsDenied);
    m_sendsTogether = !outcomes.empty() && denied == outcomes.end();
    outcomes.erase(denied, outcomes.end());
    return outcomes;
  }

  [[nodiscard]] std::string Describe() const override {
    return fmt::format("{} {} on {}, ODBC driver {} ({} {})", m_connection.TextInfo(SQL_DBMS_NAME),
                       m_connection.TextInfo(SQL_DBMS_VER), m_connection.TextInfo(SQL_SERVER_NAME),
                       m_connection.Driver(), m_connection.TextInfo(SQL_DRIVER_NAME),
                       m_connection.TextInfo(SQL_DRIVER_VER));
  }

 private:
  std::vector<Outcome> SendTogether(std::span<const ReadingCall> calls) {
    std::vector<Outcome> outcomes;
    try {
      Statement statement(m_connection, m_timeout);
      outcomes = odbc::CallTogether(statement, calls);
    } catch (const DriverError& failure) {
      outcomes.emplace_back(failure);
    }
    return outcomes;
  }

  DriverConnection m_connection;
  ProcedureCatalog m_catalog;
  std::chrono::seconds m_timeout;
  bool m_sendsTogether;  ///< the driver says that it can, and neither it nor the server has shown that they cannot
};

}  // namespace

std::unique_ptr<Session> OpenOdbc(const ConnectOptions& options) { return std::make_unique<OdbcSession>(options); }

}  // namespace quorvel::ado
