#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"

namespace quorvel::test {

/// The answers of the sessions of one test, and the options that they received.
struct FakeEngine {
  std::vector<ado::ParameterInfo> parameters;
  std::optional<ado::DriverError> failure;  ///< thrown by every operation while it is set
  std::vector<ado::Diagnostic> messages;    ///< warnings of every operation
  std::vector<ado::Column> columns;         ///< of an answer without rows; none means no result set
  ado::ConnectOptions options;              ///< received, with the last command timeout
};

class FakeSession : public ado::Session {
 public:
  explicit FakeSession(FakeEngine& engine) : m_engine(engine) {}

  void SetCommandTimeout(std::chrono::seconds timeout) override { m_engine.options.commandTimeout = timeout; }
  ado::Result Execute(std::string_view /*batch*/) override {
    if (m_engine.failure) throw ado::DriverError(*m_engine.failure);
    ado::Result result{std::nullopt, m_engine.messages};
    if (!m_engine.columns.empty()) result.rows.emplace(m_engine.columns);
    return result;
  }
  std::vector<ado::ParameterInfo> DiscoverParameters(std::string_view /*procedure*/) override {
    return m_engine.parameters;
  }
  void ForgetParameters() override {}
  ado::Result Call(std::string_view procedure, std::span<ado::Parameter> /*parameters*/,
                   ado::Access /*access*/) override {
    return Execute(procedure);
  }
  [[nodiscard]] std::string Describe() const override { return "a fake"; }

 private:
  FakeEngine& m_engine;
};

/// A closed connection whose sessions are fakes of that engine.
inline std::shared_ptr<ado::Connection> MakeConnection(FakeEngine& engine) {
  return std::make_shared<ado::Connection>([&engine](const ado::ConnectOptions& options) {
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
