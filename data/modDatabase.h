#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "ado/Connection.h"
#include "ado/Recordset.h"
#include "data/DBConnect.h"
#include "platform/Value.h"

/// The only road from the component to its database. One shared connection and one settings object per
/// thread, made on first use; nothing is shared across threads. Errors of the database pass through.
namespace quorvel::modDatabase {

/// Opens the thread's shared connection if there is none yet.
void EnsureConnection();

/// Opens a new connection and makes it the shared one, whatever was there before. The new object is in place
/// before it is opened, so after a failure the shared connection is a closed one.
void OpenConnection();

/// The thread's shared connection; null before the first EnsureConnection.
[[nodiscard]] const std::shared_ptr<ado::Connection>& SharedConnection();

/// The thread's connection settings, made on demand.
[[nodiscard]] DBConnect& Settings();

/// Opens a recordset on the shared connection. When that fails, or the connection's Errors hold entries
/// afterwards, the connection is reopened once and the statement tried again. A second failure is shown in a
/// message box and gives null; an error of the reopening itself is not caught.
[[nodiscard]] std::shared_ptr<ado::Recordset> LoadRst(std::string_view sql);

/// LoadRst, detached from the connection. Error 91 when LoadRst gave null.
[[nodiscard]] std::shared_ptr<ado::Recordset> LoadDisconnectedRst(std::string_view sql);

/// A parameter's name and the value it is given. A pair with an empty name is skipped.
using NamedValue = std::pair<std::string_view, Value>;

/// Calls a stored procedure with up to six named parameters, whose types the database tells, and returns what
/// its execution yields. Nothing is retried.
std::shared_ptr<ado::Recordset> ExecSP(std::string_view procName, std::initializer_list<NamedValue> pairs = {});

/// The next free key of a table. No two callers get the same.
[[nodiscard]] std::int32_t GetNextSurrogateKey(std::string_view tableName);

/// Writes one column of the row that one or two keys locate (an empty `keyColumn2` means one). Shows the
/// wait cursor meanwhile; an error leaves it shown one level deeper.
void UpdateField(std::string_view table, std::string_view column, const Value& value, std::string_view keyColumn,
                 const Value& keyValue, std::string_view keyColumn2 = {}, const Value& keyValue2 = Null{});

/// A value as it is spliced into SQL: a text between single quotes, which are not doubled inside; anything else in
/// its plain text form, a boolean as 1 or 0. Error 94 for NULL.
[[nodiscard]] std::string SqlValue(const Value& value);

/// Asks the user for a new identifier of at most 30 characters; `id` is empty when the user cancels.
void GetNewID(std::string_view entityName, std::string& id);

/// The field's value as text; the empty text for NULL.
[[nodiscard]] std::string FieldText(const ado::Field& field);

/// The text without the ten characters that the administration does not take in free text.
[[nodiscard]] std::string StripChars(std::string_view text);

}  // namespace quorvel::modDatabase
