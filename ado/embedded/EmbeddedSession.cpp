#include "ado/embedded/EmbeddedSession.h"

#include <fmt/format.h>

#include <utility>

#include "ado/embedded/BatchParser.h"
#include "ado/embedded/CallFrame.h"

namespace quorvel::ado::embedded {

EmbeddedSession::EmbeddedSession(DatabaseHandle database, const std::filesystem::path& path,
                                 std::chrono::seconds commandTimeout)
    : m_file(database.Get(), path),
      m_wait(m_file, m_timeLimit),
      m_database(std::move(database)),
      m_procedures(m_database.Get()),
      m_interpreter(m_database.Get(), m_file, m_procedures, m_timeLimit, m_restrictions),
      m_reading(m_database.Get()) {
  m_wait.Attach(m_database.Get());
  m_timeLimit.Attach(m_database.Get());
  m_restrictions.Attach(m_database.Get());
  EmbeddedSession::SetCommandTimeout(commandTimeout);
}

void EmbeddedSession::SetCommandTimeout(std::chrono::seconds timeout) {
  m_wait.SetLimit(timeout);
  m_timeLimit.SetLimit(timeout);
}

Result EmbeddedSession::Execute(std::string_view batch) {
  m_wait.RefuseWhileWaiting();
  m_reading.End();
  m_discovered = {};
  const TimeLimit::Command command(m_timeLimit);
  Program program = BatchParser(TokenCursor(batch), m_procedures.Tables()).Parse();
  Frame frame;
  return {m_interpreter.Run(program, frame), {}};
}

std::vector<ParameterInfo> EmbeddedSession::DiscoverParameters(std::string_view procedure) {
  m_wait.RefuseWhileWaiting();
  const TimeLimit::Command command(m_timeLimit);
  const auto program = m_procedures.Find(procedure);
  m_discovered = {std::string(procedure), program};
  std::vector<ParameterInfo> parameters;
  for (std::size_t i = 0; i < program->parameterCount; ++i) parameters.push_back(program->variables[i].info);
  return parameters;
}

Result EmbeddedSession::Call(std::string_view procedure, std::span<Parameter> parameters, Access access) {
  m_wait.RefuseWhileWaiting();
  if (access == Access::ReadWrite && !m_procedures.IsKnownReader(procedure)) {
    m_reading.End();
    return CallNow(procedure, parameters);
  }
  // The first call of a procedure looks it up with many small queries, which share the transaction, too.
  if (access == Access::ReadWrite) return CallInOneRead(procedure, parameters);
  const Restrictions::ReadOnly readOnly(m_restrictions);
  try {
    return CallInOneRead(procedure, parameters);
  } catch (const DriverError& error) {
    if (const std::string& refused = readOnly.Refused(); !refused.empty()) {
      throw DriverError("42000", 229, fmt::format("{} was called to read and may not change {}.", procedure, refused),
                        error.Records().front().line);
    }
    throw;
  }
}

Result EmbeddedSession::CallInOneRead(std::string_view procedure, std::span<Parameter> parameters) {
  m_reading.Begin();
  try {
    Result result = CallNow(procedure, parameters);
    if (!m_keepsReading) m_reading.End();
    return result;
  } catch (...) {
    m_reading.End();
    throw;
  }
}

void EmbeddedSession::EndReading() noexcept {
  m_keepsReading = false;
  m_reading.End();
}

Result EmbeddedSession::CallNow(std::string_view procedure, std::span<Parameter> parameters) {
  const TimeLimit::Command command(m_timeLimit);
  const auto program = TakeProgram(procedure);
  // The procedure may have changed to one that writes, and a reader must not turn writer.
  if (!program->onlyReads) m_reading.End();
  GivenArguments given;
  given.reserve(parameters.size());
  for (const Parameter& parameter : parameters) given.push_back(parameter.Given());
  Frame frame = MakeFrame(*program, std::move(given), procedure);
  Result result{m_interpreter.RunCalled(*program, frame), {}};
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (parameters[i].IsOutput()) parameters[i].SetOutput(std::move(frame[i]));
  }
  return result;
}

std::shared_ptr<Program> EmbeddedSession::TakeProgram(std::string_view procedure) {
  const Discovered discovered = std::exchange(m_discovered, {});
  return discovered.program && discovered.procedure == procedure ? discovered.program : m_procedures.Find(procedure);
}

std::string EmbeddedSession::Describe() const {
  return fmt::format("embedded engine (SQLite {}), file {}", sqlite3_libversion(),
                     sqlite3_db_filename(m_database.Get(), "main"));
}

}  // namespace quorvel::ado::embedded
