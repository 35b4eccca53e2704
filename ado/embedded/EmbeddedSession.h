#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "ado/embedded/BusyWait.h"
#include "ado/embedded/FileWatch.h"
#include "ado/embedded/Interpreter.h"
#include "ado/embedded/Procedures.h"
#include "ado/embedded/ReadTransaction.h"
#include "ado/embedded/Restrictions.h"
#include "ado/embedded/Sqlite.h"
#include "ado/embedded/TimeLimit.h"
#include "ado/engine/Session.h"

namespace quorvel::ado::embedded {

/// A session of the embedded engine on an open database. While a call waits for another program's lock, the calls that
/// code of the host makes on the same thread are refused (BusyWait::RefuseWhileWaiting).
class EmbeddedSession final : public Session {
 public:
  /// `path` is the path by which the database was opened. From now on it is restricted.
  EmbeddedSession(DatabaseHandle database, const std::filesystem::path& path, std::chrono::seconds commandTimeout);

  /// Remembers which files the database has; DriverError 08S01 when one was replaced since it was opened.
  void RequireOpenedFiles() { m_file.RequireOpened(); }
  void SetCommandTimeout(std::chrono::seconds timeout) override;
  Result Execute(std::string_view batch) override;
  std::vector<ParameterInfo> DiscoverParameters(std::string_view procedure) override;
  /// Parameters of older calls need not be forgotten: each call looks whether its procedure has changed.
  void ForgetParameters() override { m_discovered = {}; }
  Result Call(std::string_view procedure, std::span<Parameter> parameters, Access access) override;
  void BeginReading() override { m_keepsReading = true; }
  void EndReading() noexcept override;
  [[nodiscard]] std::string Describe() const override;

 private:
  Result CallInOneRead(std::string_view procedure, std::span<Parameter> parameters);
  Result CallNow(std::string_view procedure, std::span<Parameter> parameters);
  [[nodiscard]] std::shared_ptr<Program> TakeProgram(std::string_view procedure);

  /// The procedure whose parameters were asked for last. When its call comes next, it was found a moment ago, and
  /// looking for a change again would take as long as a small query.
  struct Discovered {
    std::string procedure;
    std::shared_ptr<Program> program;
  };

  FileWatch m_file;
  TimeLimit m_timeLimit;
  BusyWait m_wait;
  Restrictions m_restrictions;
  DatabaseHandle m_database;
  Procedures m_procedures;
  Interpreter m_interpreter;
  ReadTransaction m_reading;
  Discovered m_discovered;
  bool m_keepsReading = false;  ///< the next calls go on in the same read transaction
};

}  // namespace quorvel::ado::embedded
