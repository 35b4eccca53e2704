#include "ado/Command.h"

#include <fmt/format.h>

#include <algorithm>

#include "ado/AdoError.h"
#include "platform/Error.h"

namespace quorvel::ado {

Parameter Command::CreateParameter(std::string name, DataType type, ParameterDirection direction, std::int32_t size,
                                   const Value& value) {
  ParameterInfo info{std::move(name), type, direction, size};
  Value coerced = CoerceToParameter(value, info);
  return Parameter(std::move(info), std::move(coerced));
}

void Command::SetCommandText(std::string text) {
  // What was discovered belongs to the former procedure; what the caller declared is the caller's.
  if (m_isDiscovered) m_parameters.clear();
  m_isDiscovered = false;
  m_text = std::move(text);
}

Parameter& Command::Parameters(std::string_view name) {
  if (m_parameters.empty() && !m_isDiscovered) {
    for (ParameterInfo& info : OpenConnection().DiscoverParameters(m_text)) m_parameters.emplace_back(std::move(info));
    m_isDiscovered = true;
  }
  const auto found = std::find_if(m_parameters.begin(), m_parameters.end(),
                                  [name](const Parameter& each) { return SameName(each.m_info.name, name); });
  if (found == m_parameters.end()) {
    ThrowAdoError(ErrorNumber::AdoItemNotFound, fmt::format("{} has no parameter {}.", m_text, name));
  }
  return *found;
}

std::shared_ptr<Recordset> Command::Execute(int /*options*/) {
  Connection& connection = OpenConnection();
  Result result = m_type == CommandType::StoredProcedure ? Call(connection) : RunText(connection);
  return std::make_shared<Recordset>(m_connection, std::move(result.rows));
}

Result Command::RunText(Connection& connection) const {
  if (!m_parameters.empty()) {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument, "Only a stored procedure takes parameters.");
  }
  return connection.Run(m_text);
}

Result Command::Call(Connection& connection) {
  std::vector<Argument> arguments;
  arguments.reserve(m_parameters.size());
  for (const Parameter& parameter : m_parameters) arguments.push_back({parameter.m_info, parameter.m_value});
  Result result = connection.Call(m_text, arguments);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (m_parameters[i].m_info.direction != ParameterDirection::Input) {
      m_parameters[i].m_value = std::move(arguments[i].value);
    }
  }
  return result;
}

Connection& Command::OpenConnection() const {
  if (!m_connection || !m_connection->IsOpen()) ThrowAdoError(ErrorNumber::AdoInvalidConnection);
  return *m_connection;
}

}  // namespace quorvel::ado
