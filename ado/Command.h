#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "ado/Types.h"

namespace quorvel::ado {

/// One parameter of a command, declared by the caller or discovered from the database.
class Parameter {
 public:
  explicit Parameter(ParameterInfo info, std::optional<quorvel::Value> value = std::nullopt)
      : m_info(std::move(info)), m_value(std::move(value)) {}

  [[nodiscard]] const ParameterInfo& Info() const noexcept { return m_info; }
  /// Null when nobody gave a value; after Execute, what an output parameter returned.
  [[nodiscard]] quorvel::Value Value() const { return m_value.value_or(Null{}); }
  /// Throws as CoerceToParameter does, and then the value is unchanged.
  void SetValue(const quorvel::Value& value) { m_value = CoerceToParameter(value, m_info); }

 private:
  friend class Command;
  ParameterInfo m_info;
  std::optional<quorvel::Value> m_value;
};

/// A statement or a stored procedure with its parameters. Use: set connection, type and text; then either
/// append declared parameters, which are sent in that order, or reach for Parameters(name), which discovers
/// them from the database on first use.
class Command {
 public:
  void SetActiveConnection(std::shared_ptr<Connection> connection) { m_connection = std::move(connection); }
  void SetCommandType(CommandType type) noexcept { m_type = type; }
  /// Forgets discovered parameters; declared ones stay.
  void SetCommandText(std::string text);

  /// Declares a parameter; the value goes through CoerceToParameter.
  [[nodiscard]] static Parameter CreateParameter(std::string name, DataType type, ParameterDirection direction,
                                                 std::int32_t size, const Value& value);
  void Append(Parameter parameter) { m_parameters.push_back(std::move(parameter)); }

  /// The parameter of that name, discovering them all first when none has been declared. adErrItemNotFound,
  /// naming procedure and parameter, when there is no such parameter; the provider's error when the
  /// procedure does not exist.
  [[nodiscard]] Parameter& Parameters(std::string_view name);

  /// Runs it and returns the first result set; a closed recordset when there was none.
  std::shared_ptr<Recordset> Execute(int options = kUnspecified);

 private:
  [[nodiscard]] Connection& OpenConnection() const;
  [[nodiscard]] Result RunText(Connection& connection) const;
  [[nodiscard]] Result Call(Connection& connection);

  std::shared_ptr<Connection> m_connection;
  CommandType m_type = CommandType::Text;
  std::string m_text;
  std::vector<Parameter> m_parameters;
  bool m_isDiscovered = false;
};

}  // namespace quorvel::ado
