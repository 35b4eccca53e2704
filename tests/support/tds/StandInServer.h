#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ado/engine/Session.h"

namespace quorvel::test {

/// A T-SQL server for tests: speaks the TDS 7.4 protocol on a port of the loopback address and runs what it is
/// asked on a database file of the embedded engine, so that a real ODBC driver, the driver manager and the
/// network stand between the component and its database. It shows what a driver does with our calls; it proves
/// nothing about SQL Server itself.
///
/// Knows: login with user and password, batches, remote procedure calls by name, parameter discovery
/// (sp_sproc_columns, sp_stored_procedures), and what a test asks for with the members below. Thread-safe.
class StandInServer {
 public:
  static constexpr std::string_view kUser = "app";
  static constexpr std::string_view kPassword = "S;ec}r'e=t";  // every character that a connection string minds

  /// Listens as soon as it is made. `databaseFile` is one that the embedded engine opens.
  explicit StandInServer(std::string databaseFile);
  /// Ends every connection.
  ~StandInServer();
  StandInServer(const StandInServer&) = delete;
  StandInServer& operator=(const StandInServer&) = delete;

  /// "127.0.0.1,PORT", as a Data Source takes it.
  [[nodiscard]] std::string Address() const;

  /// One request that came in after the login, in order of arrival: a batch's text, or a procedure's name with
  /// "call " before it.
  [[nodiscard]] std::vector<std::string> Requests() const;
  void ForgetRequests();
  /// How many logins succeeded so far.
  [[nodiscard]] int Logins() const;

  /// Closes every connection that is open now, as a server does that is shut down; new ones are welcome.
  void DropConnections();
  /// Closes the connection that sends the `request`th request from now (1-based) before anything is run.
  void DropAtRequest(int request);
  /// The same, but what was asked is run first and only its answer is lost.
  void DropAfterRequest(int request);
  /// The same, in the middle of the rows of the answer.
  void DropAmidRows(int request);
  /// Waits this long before it runs each further request; one that the client takes back before is not run.
  void DelayAnswers(std::chrono::milliseconds delay);

  /// One part of an answer that a test writes itself.
  struct Part {
    enum class Kind { Message, Error, RowCount, Rows };
    Kind kind;
    ado::Diagnostic diagnostic;                     ///< Message, Error: native number, text and line
    std::int64_t count = 0;                         ///< RowCount
    std::vector<ado::Column> columns;               ///< Rows
    std::vector<std::vector<quorvel::Value>> rows;  ///< Rows
  };
  /// From now on that request, written as Requests() gives it, gets that answer.
  void AnswerWith(std::string request, std::vector<Part> answer);

  /// Gives parameter names in lower case, as some servers do.
  void UseLowerCaseNames();

 private:
  class Implementation;
  std::unique_ptr<Implementation> m_implementation;
};

}  // namespace quorvel::test
