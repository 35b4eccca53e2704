#pragma once

#include <chrono>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ado/RowSet.h"
#include "ado/Types.h"

namespace quorvel::ado {

/// One diagnostic record as a driver gives it.
struct Diagnostic {
  std::string sqlState;  ///< five characters
  std::int32_t nativeError = 0;
  std::string message;  ///< UTF-8, without the driver's bracketed prefixes
  int line = 0;         ///< 1-based line of the batch that it speaks of; 0 when not known
};

/// An engine's failure: every record that the driver gave, never none, the first one leading.
class DriverError : public std::exception {
 public:
  explicit DriverError(std::vector<Diagnostic> records) : m_records(std::move(records)) {}
  DriverError(std::string sqlState, std::int32_t nativeError, std::string message, int line = 0)
      : m_records{{std::move(sqlState), nativeError, std::move(message), line}} {}
  [[nodiscard]] const std::vector<Diagnostic>& Records() const noexcept { return m_records; }
  [[nodiscard]] const char* what() const noexcept override { return m_records.front().message.c_str(); }

 private:
  std::vector<Diagnostic> m_records;
};

/// What a connection string says, and the timeouts that go with it.
struct ConnectOptions {
  std::string dataSource;
  std::string initialCatalog;
  std::string userId;
  std::string password;
  std::string driver;                  ///< the ODBC driver to use; empty: the best one installed
  std::string encrypt;                 ///< as the driver takes it; empty: the driver's default
  std::string trustServerCertificate;  ///< likewise
  std::chrono::seconds connectionTimeout{15};
  std::chrono::seconds commandTimeout{30};
};

/// One argument of a call, in the order of the procedure's parameters.
struct Argument {
  ParameterInfo parameter;
  /// The value sent and, after the call, the value of an output parameter. Nothing means "not given":
  /// the procedure's default applies. A server gets NULL for an output parameter that is not given.
  std::optional<Value> value;
};

/// What running something gave.
struct Result {
  std::optional<RowSet> rows;        ///< the first result set, read to its end; nothing when there was none
  std::vector<Diagnostic> messages;  ///< warnings of a run that succeeded
};

/// One open session of a database engine. Everything it throws is a DriverError. One thread uses
/// it at a time, and nothing of it stays open between two calls: no cursor, no read transaction.
class Session {
 public:
  virtual ~Session() = default;

  /// How long a statement may wait for others before SQLSTATE HYT00; 0 means without end.
  virtual void SetCommandTimeout(std::chrono::seconds timeout) = 0;

  /// Runs one T-SQL batch. Statements before a failing one keep their effect, as on a server.
  virtual Result Execute(std::string_view batch) = 0;

  /// The parameters of a procedure, in order, without the return value. The session keeps the answer and
  /// asks again only when the procedure was changed through it.
  virtual std::vector<ParameterInfo> DiscoverParameters(std::string_view procedure) = 0;

  /// Runs a procedure. Arguments are matched by position; output values are put into `arguments`.
  virtual Result Call(std::string_view procedure, std::span<Argument> arguments) = 0;

  /// What a person should be told of the other end: engine, version, file or server.
  [[nodiscard]] virtual std::string Describe() const = 0;
};

/// Opens a session on the engine that `options.dataSource` asks for: "(embedded)" is the embedded engine
/// on the file `options.initialCatalog`, anything else a SQL Server.
[[nodiscard]] std::unique_ptr<Session> OpenSession(const ConnectOptions& options);

/// What errors of the engine behind that data source give as their source.
[[nodiscard]] std::string_view SourceOfEngine(std::string_view dataSource) noexcept;

/// The data source that stands for the embedded engine.
inline constexpr std::string_view kEmbeddedDataSource = "(embedded)";
/// Whether a data source is that one; letter case and blanks around it do not count.
[[nodiscard]] bool IsEmbedded(std::string_view dataSource) noexcept;

}  // namespace quorvel::ado
