#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ado/Command.h"
#include "ado/Connection.h"
#include "ado/Recordset.h"
#include "data/Controls.h"
#include "data/DBConnect.h"
#include "platform/Error.h"
#include "platform/Value.h"

/// The only road from the component to its database. Each thread has its own connection and settings, made on first
/// use; threads share nothing. Errors of the database pass through.
///
/// A lost connection (Connection::IsLost) is dropped at the end of the call that failed on it, and the next call opens
/// another one.
namespace quorvel::modDatabase {

/// Opens the thread's shared connection if there is none yet.
void EnsureConnection();

/// Opens a new connection and makes it the shared one instead of any earlier one. After a failure there is none, and
/// the next call tries again.
void OpenConnection();

/// How long this thread waits for a server that takes a connection and stays silent: an hour, unless a program sets
/// another time for the connections that it opens from then on.
void SetConnectionTimeout(std::chrono::seconds timeout);

/// The thread's shared connection; null before the first EnsureConnection and after a loss.
[[nodiscard]] const std::shared_ptr<ado::Connection>& SharedConnection();

/// How many connections to a file of the embedded engine this thread has lost or replaced. Each time an older copy may
/// have taken the place of the file.
[[nodiscard]] std::uint32_t LostFiles();

/// The thread's connection settings, made on demand.
[[nodiscard]] DBConnect& Settings();

/// Opens a recordset on the shared connection. When that fails, or the connection's Errors hold entries
/// afterwards, a new connection is opened and the statement is tried once more. A second failure is shown in a
/// message box, and the result is null; an error of the reconnect itself is not caught.
[[nodiscard]] std::shared_ptr<ado::Recordset> LoadRst(std::string_view sql);

/// LoadRst, detached from the connection. Null when LoadRst returned null, which the user has then seen.
[[nodiscard]] std::shared_ptr<ado::Recordset> LoadDisconnectedRst(std::string_view sql);

/// A parameter's name and its value. A pair with an empty name is skipped.
using NamedValue = std::pair<std::string_view, Value>;

/// Calls a stored procedure with up to six named parameters and returns its result. The database supplies the
/// parameters' order and types, again for each call unless a KeptParameters lives. Nothing is sent twice: when
/// parameters that were discovered earlier no longer fit, the procedure has not run.
std::shared_ptr<ado::Recordset> ExecSP(std::string_view procName, std::initializer_list<NamedValue> pairs = {});

/// As long as it lives, this thread asks a server once for the parameters of each procedure. They are sent by position,
/// and a DBA may change their order while hosts run, so they are kept for one save at most.
class KeptParameters {
 public:
  KeptParameters();
  ~KeptParameters();
  KeptParameters(const KeptParameters&) = delete;
  KeptParameters& operator=(const KeptParameters&) = delete;

 private:
  bool m_wereKept;
};

/// Calls a stored procedure that only reads with parameters that the caller declares, in the procedure's order, and
/// returns its result. Works for procedures whose parameter names are not known: the host's own. Nothing is retried.
/// The embedded engine refuses a procedure that writes.
std::shared_ptr<ado::Recordset> ExecDeclaredSP(std::string_view procName, std::vector<ado::Parameter> parameters);

/// Calls of ExecDeclaredSP that do not need each other's answers. A server gets them in one request where its driver
/// can do that. What goes wrong in a call is raised when its result is asked for. One command timeout holds for all.
class DeclaredCalls {
 public:
  /// Adds a call before the first Next.
  void Add(std::string procName, std::vector<ado::Parameter> parameters);
  /// The result of the next call, in the order of Add; as ExecDeclaredSP raises errors.
  [[nodiscard]] std::shared_ptr<ado::Recordset> Next();

 private:
  void SendTogether();

  std::vector<ado::ReadingCall> m_calls;
  std::size_t m_next = 0;
  std::shared_ptr<ado::Connection> m_connection;  ///< that has sent them together
  std::vector<ado::Outcome> m_outcomes;           ///< of the first calls
};

/// As long as the result lives, this thread only reads. The calls of a Load are faster so. Opens no connection.
[[nodiscard]] ado::Connection::Reading BeginReading();

/// The next free key of a table. No two callers get the same.
[[nodiscard]] std::int32_t GetNextSurrogateKey(std::string_view tableName);

/// Writes one column of the row that one or two keys locate (an empty `keyColumn2` means one). Shows the
/// wait cursor meanwhile; an error leaves it shown one level deeper.
void UpdateField(std::string_view table, std::string_view column, const Value& value, std::string_view keyColumn,
                 const Value& keyValue, std::string_view keyColumn2 = {}, const Value& keyValue2 = Null{});

/// A value as it is spliced into SQL: a text between single quotes, without doubling any inside it; any other value
/// in its plain text form, a boolean as 1 or 0. Error 94 for NULL.
[[nodiscard]] std::string SqlValue(const Value& value);

/// Whether the last call failed with this error because a row with the key, or with another unique value, exists.
[[nodiscard]] bool IsDuplicateKey(const Error& error);

/// Whether the last call failed with this error before anything was sent, because its values do not fit. False for
/// every error of the database: a procedure or trigger may raise any of them after it has stored something.
[[nodiscard]] bool WasNotSent(const Error& error);

/// Asks the user for a new identifier of at most 30 characters; `id` is empty when the user cancels.
void GetNewID(std::string_view entityName, std::string& id);

/// The field's value as text; the empty text for NULL.
[[nodiscard]] std::string FieldText(const ado::Field& field);

/// The text without the ten characters that the administration does not accept in free text.
[[nodiscard]] std::string StripChars(std::string_view text);

/// Fills a list or combo box with `count` rows of `rs` in place of its former items (modControls::AddRows).
void FillList(ItemList& list, std::int32_t count, std::string_view displayField, std::string_view keyField,
              const std::shared_ptr<ado::Recordset>& rs);

}  // namespace quorvel::modDatabase
