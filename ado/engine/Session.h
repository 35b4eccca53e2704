#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ado/engine/DriverError.h"
#include "ado/engine/Parameter.h"
#include "ado/engine/RowSet.h"

namespace quorvel::ado {

/// The answer of a batch or a procedure.
struct Result {
  std::optional<RowSet> rows;        ///< the first result set, read to its end; nothing when there was none
  std::vector<Diagnostic> messages;  ///< warnings of a run that succeeded
};

/// The purpose of a call.
enum class Access {
  Read,  ///< the embedded engine refuses what the procedure would change; on a server its permissions decide
  ReadWrite,
};

/// A call of a procedure that only reads and has no output parameters.
struct ReadingCall {
  std::string procedure;
  std::vector<Parameter> parameters;
};

/// The answer of a call, or its failure.
using Outcome = std::variant<Result, DriverError>;

/// One open session of a database engine. Everything it throws is a DriverError. One thread uses it at a time. Nothing
/// of it stays open between two calls: no cursor, and no read transaction but that of BeginReading.
class Session {
 public:
  virtual ~Session() = default;

  /// How long a statement may wait for others before SQLSTATE HYT00; 0 means without a limit.
  virtual void SetCommandTimeout(std::chrono::seconds timeout) = 0;

  /// Runs one T-SQL batch. Statements before a failing one keep their effect, as on a server.
  virtual Result Execute(std::string_view batch) = 0;

  /// The parameters of a procedure, in order, without the return value. The session keeps the answer and
  /// asks again only when the procedure was changed through it, or after ForgetParameters.
  virtual std::vector<ParameterInfo> DiscoverParameters(std::string_view procedure) = 0;
  virtual void ForgetParameters() = 0;

  /// Runs a procedure. `parameters` are matched by position: one without a value takes the procedure's default, except
  /// that a server gets NULL for an output parameter. Then sets the values of the output parameters; a call that throws
  /// changes none.
  virtual Result Call(std::string_view procedure, std::span<Parameter> parameters, Access access) = 0;

  /// Sends calls that do not need each other's answers in one request, and returns the outcomes of the first ones in
  /// their order: of fewer than all after a failure or where the driver or the server refuses the others, of none where
  /// calls cannot be sent together. The caller makes the other calls by itself. A call may run after a failed one.
  virtual std::vector<Outcome> CallTogether(std::span<const ReadingCall> /*calls*/) { return {}; }

  /// Until EndReading the caller only reads. An engine may read it all in one transaction.
  virtual void BeginReading() {}
  virtual void EndReading() noexcept {}

  /// Engine, version and file or server, as text for people.
  [[nodiscard]] virtual std::string Describe() const = 0;
};

}  // namespace quorvel::ado
