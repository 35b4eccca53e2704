#pragma once

#include <chrono>
#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "ado/engine/Session.h"
#include "tests/support/tds/TdsSocket.h"

namespace quorvel::test {

namespace tds {
class StandInSession;
}

/// A T-SQL server for tests: it speaks the TDS 7.4 protocol on a port of the loopback address and runs the requests
/// on a database file of the embedded engine, so that a real ODBC driver, the driver manager and the network are
/// between the component and its database. It shows what a driver does with our calls; it proves nothing about
/// SQL Server.
///
/// Knows: login with user and password, batches, remote procedure calls by name, parameter discovery
/// (sp_sproc_columns, sp_stored_procedures), and what a test asks for with the members below. Thread-safe.
class StandInServer {
 public:
  static constexpr std::string_view kUser = "app";
  static constexpr std::string_view kPassword = "S;ec}r'e=t";  // every character that a connection string minds

  /// Listens at once. `databaseFile` is one that the embedded engine opens.
  explicit StandInServer(std::string databaseFile);
  /// Ends every connection.
  ~StandInServer();
  StandInServer(const StandInServer&) = delete;
  StandInServer& operator=(const StandInServer&) = delete;

  /// "127.0.0.1,PORT", as a Data Source takes it.
  [[nodiscard]] std::string Address() const;

  /// The requests after the login, in order of arrival: a batch's text, or a procedure's name with "call " before it.
  [[nodiscard]] std::vector<std::string> Requests() const;
  void ForgetRequests();
  /// How many logins succeeded so far.
  [[nodiscard]] int Logins() const;

  /// Closes every open connection, as a server does when it is shut down; new ones are accepted.
  void DropConnections();
  /// Closes the connection that sends the `request`th request from now (1-based) before anything is run; 0 closes none.
  void DropAtRequest(int request) { Plan(Fault::DropAtRequest, request); }
  /// The same, but the request is run first and only its answer is lost.
  void DropAfterRequest(int request) { Plan(Fault::DropAfterRequest, request); }
  /// The same, in the middle of the rows of the answer.
  void DropAmidRows(int request) { Plan(Fault::DropAmidRows, request); }
  /// Waits this long before it runs each later request; one that the client cancels before is not run.
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
  /// From now on that request, written as Requests() returns it, gets that answer.
  void AnswerWith(std::string request, std::vector<Part> answer);

 private:
  enum class Fault { None, DropAtRequest, DropAfterRequest, DropAmidRows };
  /// How one request is answered.
  struct Treatment {
    Fault fault = Fault::None;
    std::chrono::milliseconds delay{0};
    std::optional<std::vector<Part>> answer;
  };

  void Plan(Fault fault, int request);
  [[nodiscard]] Treatment Note(const std::string& request);
  void Accept();
  void Serve(int socket);
  [[nodiscard]] bool LogIn(int socket);
  void AnswerRequests(int socket);
  /// False when the connection is to be dropped.
  [[nodiscard]] bool AnswerRequest(int socket, tds::StandInSession& session, const tds::Message& message);

  std::string m_databaseFile;
  tds::Socket m_listener;
  mutable std::mutex m_mutex;  ///< guards everything below
  std::vector<std::string> m_requests;
  int m_logins = 0;
  Fault m_fault = Fault::None;
  int m_requestsToFault = 0;
  Treatment m_treatment;  ///< of requests without a fault or an answer of their own
  std::map<std::string, std::vector<Part>> m_answers;
  std::list<int> m_open;
  std::list<std::thread> m_clients;
  std::thread m_acceptor;
};

using Part = StandInServer::Part;

inline Part Message(const char* text) { return {Part::Kind::Message, {"01000", 0, text, 1}, 0, {}, {}}; }
inline Part Failure(const char* text, std::int32_t number = 50001, int line = 1) {
  return {Part::Kind::Error, {"42000", number, text, line}, 0, {}, {}};
}

}  // namespace quorvel::test
