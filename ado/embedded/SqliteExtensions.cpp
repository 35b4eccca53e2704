// A function that the T-SQL translators write into statements has a name that begins with tsql_.
#include "ado/embedded/SqliteExtensions.h"

#include <fmt/format.h>

#include <array>
#include <string>

#include "ado/embedded/Catalog.h"
#include "ado/embedded/DateUnits.h"
#include "ado/embedded/NumberRules.h"
#include "ado/embedded/Sqlite.h"
#include "ado/embedded/SqliteError.h"
#include "platform/DateTime.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

std::string_view WithoutTrailingBlanks(const void* text, int length) {
  std::string_view view(static_cast<const char*>(text), static_cast<std::size_t>(length));
  while (view.ends_with(' ')) view.remove_suffix(1);
  return view;
}

int Collate(void* /*unused*/, int leftLength, const void* left, int rightLength, const void* right) {
  return CompareIgnoringCase(WithoutTrailingBlanks(left, leftLength), WithoutTrailingBlanks(right, rightLength));
}

void ReturnText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool AnyNull(int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return true;
  }
  return false;
}

void FailConversion(sqlite3_context* context) {
  sqlite3_result_error(context, "Conversion failed when converting date and/or time from character string.", -1);
}

void NowFunction(sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
  ReturnText(context, FormatDateTime(Now()));
}

/// tsql_datetime(text): a date in any form that the engine reads, in the one form that it stores.
void DateTimeFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const auto moment = ParseDateTime(TextOf(values[0]));
  if (!moment) return FailConversion(context);
  ReturnText(context, FormatDateTime(*moment));
}

/// tsql_plus(left, right): `+` between operands whose types are not known before the statement runs.
void PlusFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const int left = sqlite3_value_type(values[0]);
  const int right = sqlite3_value_type(values[1]);
  sqlite3_int64 sum = 0;
  if (left == SQLITE_TEXT && right == SQLITE_TEXT) {
    ReturnText(context, std::string(TextOf(values[0])).append(TextOf(values[1])));
  } else if (left == SQLITE_FLOAT || right == SQLITE_FLOAT ||
             __builtin_add_overflow(sqlite3_value_int64(values[0]), sqlite3_value_int64(values[1]), &sum)) {
    sqlite3_result_double(context, sqlite3_value_double(values[0]) + sqlite3_value_double(values[1]));
  } else {
    sqlite3_result_int64(context, sum);
  }
}

/// tsql_right(text, count): the last characters. SQLite's substr needs the text and the count twice, and a text that is
/// written twice at each level grows beyond all memory.
void RightFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const std::string_view text = TextOf(values[0]);
  const auto isInsideCharacter = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  std::size_t begin = text.size();
  for (sqlite3_int64 wanted = sqlite3_value_int64(values[1]); wanted > 0 && begin > 0; --wanted) {
    do --begin;
    while (begin > 0 && isInsideCharacter(begin));
  }
  ReturnText(context, text.substr(begin));
}

/// tsql_isdate(value): whether the engine can read it as a date.
void IsDateFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  sqlite3_result_int(context, !AnyNull(count, values) && ParseDateTime(TextOf(values[0])) ? 1 : 0);
}

/// tsql_dateadd(unit, number, date)
void DateAddFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const auto moment = ParseDateTime(TextOf(values[2]));
  if (!moment) return FailConversion(context);
  const std::string_view name = TextOf(values[0]);
  const DateUnit* unit = FindDateUnit(name);
  if (unit == nullptr) {
    return sqlite3_result_error(context, fmt::format("'{}' is not a recognized dateadd option.", name).c_str(), -1);
  }
  const auto result = AddUnits(*moment, *unit, sqlite3_value_int64(values[1]));
  if (!result) {
    return sqlite3_result_error(context, "Adding a value to a 'datetime' column caused an overflow.", -1);
  }
  ReturnText(context, FormatDateTime(*result));
}

bool IsBlankText(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_TEXT && numberRules::IsZero(TextOf(value));
}

/// A text that SQLite takes as a whole number, such as '1e3', and a server does not.
bool IsRefusedAsWhole(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_TEXT && !numberRules::IsWhole(TextOf(value));
}

void FailWhole(sqlite3_context* context, sqlite3_value* value) {
  sqlite3_result_error(context, numberRules::NotWhole(TextOf(value)).c_str(), -1);
}

/// tsql_number(value, 'number' or 'whole' or 'bit'): a value for a column of this kind, as a server converts it. It
/// refuses texts that are no whole numbers; any other value that does not fit is left to the column's own check.
void NumberFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  const bool isFraction = sqlite3_value_type(values[0]) == SQLITE_FLOAT;
  const std::string_view kind = TextOf(values[1]);
  if (IsBlankText(values[0])) {
    sqlite3_result_int(context, 0);
  } else if (isFraction && kind == "bit") {
    sqlite3_result_int(context, sqlite3_value_double(values[0]) != 0 ? 1 : 0);
  } else if (isFraction && kind == "whole") {
    sqlite3_result_double(context, numberRules::Whole(sqlite3_value_double(values[0])));
  } else if (kind == "whole" && IsRefusedAsWhole(values[0])) {
    FailWhole(context, values[0]);
  } else {
    sqlite3_result_value(context, values[0]);
  }
}

/// tsql_int(value, lowest, highest): a cast to a whole number. SQLite's own accepts any text and any size.
void IntFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  if (IsBlankText(values[0])) return sqlite3_result_int(context, 0);
  if (IsRefusedAsWhole(values[0])) return FailWhole(context, values[0]);
  const sqlite3_int64 number = sqlite3_value_int64(values[0]);
  if (number < sqlite3_value_int64(values[1]) || number > sqlite3_value_int64(values[2])) {
    return sqlite3_result_error(context, fmt::format("Arithmetic overflow: {} does not fit.", number).c_str(), -1);
  }
  sqlite3_result_int64(context, number);
}

/// The name in `dbo.[name]`.
std::string ObjectName(std::string_view name) {
  std::string result(name.substr(name.rfind('.') + 1));
  std::erase_if(result, [](char c) { return c == '[' || c == ']' || c == '"'; });
  return result;
}

/// Returns the value that the query finds for the key, if it finds one.
void ReturnFound(sqlite3_context* context, std::string_view query, const Value& key) {
  sqlite3* database = sqlite3_context_db_handle(context);
  const StatementHandle statement = Prepare(database, query);
  Bind(database, statement.Get(), 1, key);
  if (Advance(database, statement.Get())) sqlite3_result_value(context, sqlite3_column_value(statement.Get(), 0));
}

bool HasProcedures(sqlite3* database) {
  return sqlite3_table_column_metadata(database, nullptr, kProcedureTable, nullptr, nullptr, nullptr, nullptr, nullptr,
                                       nullptr) == SQLITE_OK;
}

/// SQLite is C: no exception may pass through it. When a query inside the function runs out of time, the statement that
/// calls the function ends with the same code.
void Guarded(sqlite3_context* context, const auto& operation) {
  try {
    operation();
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    const int code = sqlite3_errcode(sqlite3_context_db_handle(context));
    sqlite3_result_error(context, error.what(), -1);
    if (code == SQLITE_INTERRUPT || code == SQLITE_BUSY) sqlite3_result_error_code(context, code);
  }
}

/// tsql_object_id(name, 'U' | 'P' | NULL): a number when there is such a table or procedure, else NULL.
void ObjectIdFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  Guarded(context, [&] {
    const Value name = ObjectName(TextOf(values[0]));
    const std::string_view kind = TextOf(values[1]);
    if (kind != "P") {
      ReturnFound(context,
                  "SELECT rowid FROM sqlite_schema WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE", name);
    }
    if (kind != "U" && HasProcedures(sqlite3_context_db_handle(context))) {
      ReturnFound(context, fmt::format("SELECT rowid + {} FROM {} WHERE Name = ?1", kFirstProcedureId, kProcedureTable),
                  name);
    }
  });
}

/// tsql_object_definition(id): a procedure's text, or NULL.
void ObjectDefinitionFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  Guarded(context, [&] {
    if (!HasProcedures(sqlite3_context_db_handle(context))) return;
    ReturnFound(context,
                fmt::format("SELECT Definition FROM {} WHERE rowid = ?1 - {}", kProcedureTable, kFirstProcedureId),
                std::int64_t{sqlite3_value_int64(values[0])});
  });
}

}  // namespace

void RegisterExtensions(sqlite3* database) {
  struct Function {
    const char* name;
    int arguments;
    int flags;
    void (*body)(sqlite3_context*, int, sqlite3_value**);
  };
  constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  constexpr std::array<Function, 10> kFunctions = {
      {{"tsql_now", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, &NowFunction},
       {"tsql_datetime", 1, kPure, &DateTimeFunction},
       {"tsql_isdate", 1, kPure, &IsDateFunction},
       {"tsql_number", 2, kPure, &NumberFunction},
       {"tsql_plus", 2, kPure, &PlusFunction},
       {"tsql_right", 2, kPure, &RightFunction},
       {"tsql_dateadd", 3, kPure, &DateAddFunction},
       {"tsql_int", 3, kPure, &IntFunction},
       {"tsql_object_id", 2, SQLITE_UTF8, &ObjectIdFunction},
       {"tsql_object_definition", 1, SQLITE_UTF8, &ObjectDefinitionFunction}}};
  for (const auto& [name, arguments, flags, body] : kFunctions) {
    const int code =
        sqlite3_create_function_v2(database, name, arguments, flags, nullptr, body, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) ThrowDriverError(database, code);
  }
  const int code = sqlite3_create_collation_v2(database, "NOCASE", SQLITE_UTF8, nullptr, &Collate, nullptr);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
}

}  // namespace quorvel::ado::embedded
