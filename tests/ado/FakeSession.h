#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ado/Connection.h"
#include "tests/support/Caught.h"

namespace quorvel::test {

/// What the sessions of one test answer and what they were asked.
struct FakeEngine {
  std::vector<ado::ParameterInfo> parameters;
  std::optional<ado::DriverError> failure;  ///< thrown by every operation while it is set
  std::vector<ado::Diagnostic> messages;    ///< warnings of every operation
  std::vector<ado::Column> columns;         ///< of an answer without rows; none means no result set
  Value output;                             ///< returned in every output parameter

  ado::ConnectOptions options;
  std::vector<std::string> asked;
  std::vector<ado::Parameter> sent;
  int discoveries = 0;
};

class FakeSession : public ado::Session {
 public:
  explicit FakeSession(FakeEngine& engine) : m_engine(engine) {}

  void SetCommandTimeout(std::chrono::seconds timeout) override { m_engine.options.commandTimeout = timeout; }
  ado::Result Execute(std::string_view batch) override { return Answer(batch); }
  std::vector<ado::ParameterInfo> DiscoverParameters(std::string_view /*procedure*/) override {
    ++m_engine.discoveries;
    if (m_engine.failure) throw ado::DriverError(*m_engine.failure);
    return m_engine.parameters;
  }
  ado::Result Call(std::string_view procedure, std::span<ado::Parameter> parameters) override {
    m_engine.sent.assign(parameters.begin(), parameters.end());
    ado::Result result = Answer(procedure);
    for (ado::Parameter& parameter : parameters) {
      if (parameter.IsOutput()) parameter.SetOutput(m_engine.output);
    }
    return result;
  }
  [[nodiscard]] std::string Describe() const override { return "a fake"; }

 private:
  ado::Result Answer(std::string_view question) {
    m_engine.asked.emplace_back(question);
    if (m_engine.failure) throw ado::DriverError(*m_engine.failure);
    ado::Result result;
    if (!m_engine.columns.empty()) result.rows.emplace(m_engine.columns);
    result.messages = m_engine.messages;
    return result;
  }

  FakeEngine& m_engine;
};

/// A closed connection whose sessions are fakes of that engine.
inline std::shared_ptr<ado::Connection> MakeConnection(FakeEngine& engine) {
  return std::make_shared<ado::Connection>(
      [&engine](const ado::ConnectOptions& options) -> std::unique_ptr<ado::Session> {
        engine.options = options;
        if (engine.failure) throw ado::DriverError(*engine.failure);
        return std::make_unique<FakeSession>(engine);
      });
}

inline std::shared_ptr<ado::Connection> Connect(FakeEngine& engine) {
  auto connection = MakeConnection(engine);
  connection->SetConnectionString("Data Source=(embedded)");
  connection->Open();
  return connection;
}

}  // namespace quorvel::test
