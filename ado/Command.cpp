#include "ado/Command.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "ado/engine/AdoError.h"
#include "platform/Error.h"

namespace quorvel::ado {

Parameter Command::CreateParameter(std::string name, DataType type, ParameterDirection direction, std::int32_t size,
                                   Value value) {
  ParameterInfo info{std::move(name), type, direction, size};
  Value coerced = CoerceToParameter(std::move(value), info);
  return Parameter(std::move(info), std::move(coerced));
}

void Command::SetCommandText(std::string text) {
  // Discovered parameters belong to the previous procedure, declared ones to the caller.
  if (m_isDiscovered) m_parameters.clear();
  m_isDiscovered = false;
  m_text = std::move(text);
}

Parameter& Command::Parameters(std::string_view name) {
  if (m_parameters.empty() && !m_isDiscovered) Discover();
  const auto found = std::find_if(m_parameters.begin(), m_parameters.end(),
                                  [name](const Parameter& each) { return SameName(each.Info().name, name); });
  if (found == m_parameters.end()) {
    ThrowAdoError(ErrorNumber::AdoItemNotFound, fmt::format("{} has no parameter {}.", m_text, name));
  }
  return *found;
}

void Command::Discover() {
  for (ParameterInfo& info : OpenConnection().DiscoverParameters(m_text)) m_parameters.emplace_back(std::move(info));
  m_isDiscovered = true;
}

bool Command::DiscoverAgain() {
  if (!m_isDiscovered) return false;
  OpenConnection().ForgetParameters();
  const std::vector<Parameter> former = std::exchange(m_parameters, {});
  Discover();
  return !std::ranges::equal(former, m_parameters, {}, &Parameter::Info, &Parameter::Info);
}

std::shared_ptr<Recordset> Command::Execute(int /*options*/) {
  Connection& connection = OpenConnection();
  Result result =
      m_type == CommandType::StoredProcedure ? connection.Call(m_text, m_parameters, m_access) : RunText(connection);
  return std::make_shared<Recordset>(m_connection, std::move(result.rows));
}

Result Command::RunText(Connection& connection) const {
  if (!m_parameters.empty()) {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument, "Only a stored procedure takes parameters.");
  }
  return connection.Run(m_text);
}

Connection& Command::OpenConnection() const {
  if (!m_connection || !m_connection->IsOpen()) ThrowAdoError(ErrorNumber::AdoInvalidConnection);
  return *m_connection;
}

}  // namespace quorvel::ado
