#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/support/tds/StandInServer.h"
#include "tests/support/tds/TdsReader.h"
#include "tests/support/tds/TdsWriter.h"

namespace quorvel::test::tds {

/// Runs the requests of one client on the database file and writes the answers.
class StandInSession {
 public:
  explicit StandInSession(const std::string& databaseFile);

  void Run(const Request& request, Writer& answer);

 private:
  void RunBatch(std::string_view batch, Writer& answer);
  void RunStatements(const Request& request, Writer& answer);
  void RunStatement(const Request& call, Writer& answer);
  void RunCall(const Request& call, Writer& answer);
  void DescribeColumns(const Request& call, Writer& answer);
  void DescribeProcedures(const Request& call, Writer& answer);
  void CallProcedure(const Request& call, Writer& answer);
  /// Sets `arguments` to the procedure's parameters with their values after the call.
  [[nodiscard]] ado::Result Execute(const Request& call, std::vector<ado::Parameter>& arguments);
  [[nodiscard]] std::vector<std::string> ProceduresLike(std::string_view pattern);

  std::unique_ptr<ado::Session> m_session;
};

/// Writes an answer that a test composed.
void WriteParts(const std::vector<StandInServer::Part>& parts, Writer& answer);

}  // namespace quorvel::test::tds
