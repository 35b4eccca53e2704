#pragma once

#include <string>

#include "ado/engine/ConnectOptions.h"
#include "ado/odbc/Handles.h"

namespace quorvel::ado::odbc {

/// A connection through one driver to one server. Statements must not outlive it.
class DriverConnection {
 public:
  /// Connects, trying for at most `options.connectionTimeout`. DriverError when no driver is installed, the server
  /// cannot be reached or refuses; each record's message then names driver and server.
  explicit DriverConnection(const ConnectOptions& options);
  DriverConnection(const DriverConnection&) = delete;
  DriverConnection& operator=(const DriverConnection&) = delete;

  [[nodiscard]] SQLHDBC Get() const noexcept { return m_connection.Get(); }

  /// The name under which the driver is installed.
  [[nodiscard]] const std::string& Driver() const noexcept { return m_driver; }
  /// A text of SQLGetInfo about driver or server; empty when the driver has none.
  [[nodiscard]] std::string TextInfo(SQLUSMALLINT item) const;
  /// Whether the driver knows that the connection is lost.
  [[nodiscard]] bool IsDead() const;
  /// Whether SQLGetData reads any column and not only those after the last bound one.
  [[nodiscard]] bool ReadsAnyColumn() const noexcept { return m_readsAnyColumn; }
  /// Whether one statement may hold several procedure calls that give rows.
  [[nodiscard]] bool SendsCallsTogether() const noexcept { return m_sendsCallsTogether; }

 private:
  void Connect(const ConnectOptions& options);
  /// A set of flags of SQLGetInfo.
  [[nodiscard]] SQLUINTEGER FlagsInfo(SQLUSMALLINT item) const;
  /// The same; none when the driver does not know the item.
  [[nodiscard]] SQLUINTEGER OptionalFlagsInfo(SQLUSMALLINT item) const;

  EnvironmentHandle m_environment;
  ConnectionHandle m_connection;
  std::string m_driver;
  bool m_readsAnyColumn = false;
  bool m_sendsCallsTogether = false;
};

}  // namespace quorvel::ado::odbc
