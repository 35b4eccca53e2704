#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ado/OpenSession.h"
#include "ado/ProviderError.h"
#include "ado/Recordset.h"
#include "ado/engine/Session.h"

namespace quorvel::ado {

enum class CursorLocation : int { Server = 2, Client = 3 };
enum class ConnectMode : int { Unknown = 0, ReadWrite = 3 };

/// "Options unspecified", ADO's default for the options of Open and Execute.
inline constexpr int kUnspecified = -1;

/// A connection to a database. Made by make_shared; commands and recordsets keep it alive, and it closes with the last
/// of them. Used by one thread at a time.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  using SessionOpener = std::function<std::unique_ptr<Session>(const ConnectOptions&)>;

  explicit Connection(SessionOpener opener = OpenSession);

  void SetConnectionString(std::string text) { m_connectionString = std::move(text); }
  [[nodiscard]] const std::string& ConnectionString() const noexcept { return m_connectionString; }
  void SetCursorLocation(CursorLocation location) noexcept { m_cursorLocation = location; }
  [[nodiscard]] ado::CursorLocation CursorLocation() const noexcept { return m_cursorLocation; }
  void SetMode(ConnectMode mode) noexcept { m_mode = mode; }
  [[nodiscard]] ConnectMode Mode() const noexcept { return m_mode; }
  /// Applies at once to an open connection.
  void SetCommandTimeout(std::chrono::seconds timeout);
  [[nodiscard]] std::chrono::seconds CommandTimeout() const noexcept { return m_commandTimeout; }
  void SetConnectionTimeout(std::chrono::seconds timeout) noexcept { m_connectionTimeout = timeout; }
  [[nodiscard]] std::chrono::seconds ConnectionTimeout() const noexcept { return m_connectionTimeout; }

  /// Opens the session that the connection string describes; `userId` and `password` replace the string's when they are
  /// not empty. adErrObjectOpen when it is open already. After any other Error the connection stays closed.
  void Open(std::string_view userId = {}, std::string_view password = {}, int options = kUnspecified);
  [[nodiscard]] bool IsOpen() const noexcept { return m_session != nullptr; }
  /// Whether an operation has failed in a way that only a new connection can end: the connection is gone (a SQLSTATE
  /// 08xxx), or the database was read-only when it was opened and refused a write.
  [[nodiscard]] bool IsLost() const noexcept { return m_isLost; }

  /// Whether the database is a file of the embedded engine. Known after Open.
  [[nodiscard]] bool IsFile() const noexcept;

  /// Runs a batch and returns its first result set; a closed recordset when it had none.
  std::shared_ptr<Recordset> Execute(std::string_view batch, int options = kUnspecified);

  /// As long as it lives, the connection is only read from. The embedded engine reads in one transaction then. Does
  /// nothing without a connection.
  class Reading {
   public:
    explicit Reading(std::shared_ptr<Connection> connection);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

   private:
    std::shared_ptr<Connection> m_connection;
  };

  /// Every record of the last operation of the database that failed or warned. An operation that does neither leaves
  /// them unchanged, as ADO documents.
  [[nodiscard]] const std::vector<ProviderError>& Errors() const noexcept { return m_errors; }
  void ClearErrors() noexcept { m_errors.clear(); }

  /// Engine, version and file or server, as text for people. adErrObjectClosed when not open.
  [[nodiscard]] std::string Describe();

  /// For Command, Recordset and modDatabase. adErrObjectClosed when not open.
  Result Run(std::string_view batch);
  Result Call(std::string_view procedure, std::span<Parameter> parameters, Access access);
  /// Session::CallTogether. What a call fails with is raised by Take.
  [[nodiscard]] std::vector<Outcome> CallTogether(std::span<const ReadingCall> calls);
  /// The result of one of these calls, or its error. Changes Errors as if the call were made now.
  std::shared_ptr<Recordset> Take(Outcome outcome);
  [[nodiscard]] std::vector<ParameterInfo> DiscoverParameters(std::string_view procedure);
  /// The next DiscoverParameters asks the database.
  void ForgetParameters();

 private:
  [[nodiscard]] Session& OpenedSession();
  template <typename Operation>
  auto Guard(const Operation& operation);
  [[nodiscard]] Result KeepMessages(Result result);
  [[noreturn]] void Raise(const std::vector<Diagnostic>& records);
  void NoteLoss(const std::vector<Diagnostic>& records);
  void Record(const std::vector<Diagnostic>& records);

  std::string m_connectionString;
  ado::CursorLocation m_cursorLocation = ado::CursorLocation::Server;
  ConnectMode m_mode = ConnectMode::Unknown;
  std::chrono::seconds m_commandTimeout{30};
  std::chrono::seconds m_connectionTimeout{15};
  SessionOpener m_opener;
  std::string_view m_source;
  std::unique_ptr<Session> m_session;
  std::vector<ProviderError> m_errors;
  bool m_isLost = false;
};

}  // namespace quorvel::ado
