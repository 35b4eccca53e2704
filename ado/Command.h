#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "ado/engine/Parameter.h"

namespace quorvel::ado {

enum class CommandType : int { Text = 1, StoredProcedure = 4 };

/// A statement or a stored procedure with its parameters. Set connection, type and text; then either append
/// declared parameters, which are sent in that order, or use Parameters(name), which discovers them from the
/// database on first use.
class Command {
 public:
  void SetActiveConnection(std::shared_ptr<Connection> connection) { m_connection = std::move(connection); }
  void SetCommandType(CommandType type) noexcept { m_type = type; }
  /// Whether a stored procedure may write; at first it may.
  void SetAccess(Access access) noexcept { m_access = access; }
  /// Forgets discovered parameters; declared ones stay.
  void SetCommandText(std::string text);

  /// Declares a parameter; the value goes through CoerceToParameter.
  [[nodiscard]] static Parameter CreateParameter(std::string name, DataType type, ParameterDirection direction,
                                                 std::int32_t size, Value value);
  void Append(Parameter parameter) { m_parameters.push_back(std::move(parameter)); }

  /// The parameter of that name, discovering them all first when none has been declared. adErrItemNotFound,
  /// naming procedure and parameter, when there is no such parameter; the provider's error when the
  /// procedure does not exist.
  [[nodiscard]] Parameter& Parameters(std::string_view name);

  /// Asks the database again for discovered parameters. Returns whether they have changed; then they have no values.
  [[nodiscard]] bool DiscoverAgain();

  /// Runs it and returns the first result set; a closed recordset when there was none. adErrInvalidConnection without
  /// an open connection, adErrInvalidArgument for a text with parameters; otherwise the provider's error.
  std::shared_ptr<Recordset> Execute(int options = kUnspecified);

 private:
  void Discover();
  [[nodiscard]] Connection& OpenConnection() const;
  [[nodiscard]] Result RunText(Connection& connection) const;

  std::shared_ptr<Connection> m_connection;
  CommandType m_type = CommandType::Text;
  Access m_access = Access::ReadWrite;
  std::string m_text;
  std::vector<Parameter> m_parameters;
  bool m_isDiscovered = false;
};

}  // namespace quorvel::ado
