#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ado/engine/Parameter.h"
#include "ado/engine/RowSet.h"
#include "ado/odbc/DriverConnection.h"
#include "ado/odbc/ProcedureName.h"
#include "platform/Text.h"

namespace quorvel::ado::odbc {

/// The parameters of the server's procedures, asked for once per name and kept until Forget.
class ProcedureCatalog {
 public:
  explicit ProcedureCatalog(const DriverConnection& connection) : m_connection(connection) {}

  /// The parameters in the order of the procedure, without its return value. DriverError 42000 (2812) when there is
  /// no such procedure or the login may not see it.
  [[nodiscard]] const std::vector<ParameterInfo>& ParametersOf(std::string_view procedure,
                                                               std::chrono::seconds timeout);

  void Forget() noexcept { m_known.clear(); }

 private:
  [[nodiscard]] std::vector<ParameterInfo> Ask(const ProcedureName& procedure, std::chrono::seconds timeout) const;
  [[nodiscard]] bool Exists(const ProcedureName& procedure, std::chrono::seconds timeout) const;
  void KeepOneSchema(const RowSet& rows, std::vector<std::size_t>& found, std::chrono::seconds timeout) const;
  [[nodiscard]] std::string DefaultSchema(std::chrono::seconds timeout) const;

  const DriverConnection& m_connection;
  std::map<std::string, std::vector<ParameterInfo>, LessIgnoringCase> m_known;
};

}  // namespace quorvel::ado::odbc
