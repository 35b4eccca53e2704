#include "ado/embedded/SqlFunctions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string>

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

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = sqlite3_value_text(value);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(sqlite3_value_bytes(value))};
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

/// Any text that reads as a date becomes the one form that dates are kept in.
void DateTimeFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const auto moment = ParseDateTime(TextOf(values[0]));
  moment ? ReturnText(context, FormatDateTime(*moment)) : FailConversion(context);
}

/// `+` between operands whose types are known only now.
void PlusFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const int left = sqlite3_value_type(values[0]);
  const int right = sqlite3_value_type(values[1]);
  if (left == SQLITE_TEXT && right == SQLITE_TEXT) {
    ReturnText(context, std::string(TextOf(values[0])).append(TextOf(values[1])));
  } else if (left == SQLITE_FLOAT || right == SQLITE_FLOAT) {
    sqlite3_result_double(context, sqlite3_value_double(values[0]) + sqlite3_value_double(values[1]));
  } else {
    sqlite3_result_int64(context, sqlite3_value_int64(values[0]) + sqlite3_value_int64(values[1]));
  }
}

/// A unit of DATEADD by its names; a length of 0 goes by months.
struct DateUnit {
  std::string_view name;
  std::string_view shortName;
  std::chrono::milliseconds length;
  int months;
};
constexpr std::array<DateUnit, 8> kDateUnits = {{{"millisecond", "ms", std::chrono::milliseconds(1), 0},
                                                 {"second", "ss", std::chrono::seconds(1), 0},
                                                 {"minute", "mi", std::chrono::minutes(1), 0},
                                                 {"hour", "hh", std::chrono::hours(1), 0},
                                                 {"day", "dd", std::chrono::days(1), 0},
                                                 {"week", "wk", std::chrono::weeks(1), 0},
                                                 {"month", "mm", std::chrono::milliseconds(0), 1},
                                                 {"year", "yy", std::chrono::milliseconds(0), 12}}};

DateTime AddMonths(DateTime moment, int months) {
  const auto midnight = std::chrono::floor<std::chrono::days>(moment);
  std::chrono::year_month_day date{midnight};
  date += std::chrono::months(months);
  if (!date.ok()) date = date.year() / date.month() / std::chrono::last;
  return std::chrono::local_days{date} + (moment - midnight);
}

/// Nothing when the result is no date of the years 1 to 9999.
std::optional<DateTime> AddUnits(DateTime moment, const DateUnit& unit, sqlite3_int64 number) {
  constexpr std::chrono::milliseconds kLongest = std::chrono::years(10'000);
  const sqlite3_int64 most = unit.months == 0 ? kLongest / unit.length : 120'000 / unit.months;
  if (number > most || number < -most) return std::nullopt;
  const DateTime result = unit.months == 0 ? moment + unit.length * std::int64_t{number}
                                           : AddMonths(moment, unit.months * static_cast<int>(number));
  const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(result)};
  if (date.year() < std::chrono::year{1} || date.year() > std::chrono::year{9999}) return std::nullopt;
  return result;
}

/// tsql_dateadd(unit, number, date)
void DateAddFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return;
  const auto moment = ParseDateTime(TextOf(values[2]));
  if (!moment) return FailConversion(context);
  const std::string_view name = TextOf(values[0]);
  const auto* unit = std::find_if(kDateUnits.begin(), kDateUnits.end(),
                                  [&](const DateUnit& each) { return each.name == name || each.shortName == name; });
  if (unit == kDateUnits.end()) {
    return sqlite3_result_error(context, fmt::format("'{}' is not a recognized dateadd option.", name).c_str(), -1);
  }
  const auto result = AddUnits(*moment, *unit, sqlite3_value_int64(values[1]));
  if (!result) {
    return sqlite3_result_error(context, "Adding a value to a 'datetime' column caused an overflow.", -1);
  }
  ReturnText(context, FormatDateTime(*result));
}

/// tsql_int(value, lowest, highest): a cast to a whole number, which SQLite's own would make of anything.
void IntFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  if (sqlite3_value_numeric_type(values[0]) == SQLITE_TEXT) {
    return sqlite3_result_error(
        context, fmt::format("Conversion failed when converting '{}' to a whole number.", TextOf(values[0])).c_str(),
        -1);
  }
  const sqlite3_int64 number = sqlite3_value_int64(values[0]);
  if (number < sqlite3_value_int64(values[1]) || number > sqlite3_value_int64(values[2])) {
    return sqlite3_result_error(context, fmt::format("Arithmetic overflow: {} does not fit.", number).c_str(), -1);
  }
  sqlite3_result_int64(context, number);
}

/// tsql_object_id(name, 'U' | 'P' | NULL): some number when there is such a table or procedure, else NULL.
void ObjectIdFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  sqlite3* database = sqlite3_context_db_handle(context);
  const std::string_view kind = TextOf(values[1]);
  std::string name(TextOf(values[0]));
  if (const auto dot = name.rfind('.'); dot != std::string::npos) name.erase(0, dot + 1);
  std::erase_if(name, [](char c) { return c == '[' || c == ']' || c == '"'; });
  const auto look = [&](const std::string& sql) {
    const StatementHandle statement = Prepare(database, sql);
    sqlite3_bind_text(statement.Get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    if (sqlite3_step(statement.Get()) == SQLITE_ROW)
      sqlite3_result_int64(context, sqlite3_column_int64(statement.Get(), 0));
  };
  try {
    if (kind != "P")
      look("SELECT rowid FROM sqlite_schema WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE");
    if (kind != "U" && sqlite3_table_column_metadata(database, nullptr, kProcedureTable, nullptr, nullptr, nullptr,
                                                     nullptr, nullptr, nullptr) == SQLITE_OK) {
      look(fmt::format("SELECT rowid FROM {} WHERE Name = ?1", kProcedureTable));
    }
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

}  // namespace

void RegisterFunctions(sqlite3* database) {
  struct Registered {
    const char* name;
    int arguments;
    int flags;
    void (*function)(sqlite3_context*, int, sqlite3_value**);
  };
  constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  for (const auto& [name, arguments, flags, function] :
       {Registered{"tsql_now", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, &NowFunction},
        Registered{"tsql_datetime", 1, kPure, &DateTimeFunction}, Registered{"tsql_plus", 2, kPure, &PlusFunction},
        Registered{"tsql_dateadd", 3, kPure, &DateAddFunction}, Registered{"tsql_int", 3, kPure, &IntFunction},
        Registered{"tsql_object_id", 2, SQLITE_UTF8, &ObjectIdFunction}}) {
    const int code =
        sqlite3_create_function_v2(database, name, arguments, flags, nullptr, function, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) ThrowDriverError(database, code);
  }
  const int code = sqlite3_create_collation_v2(database, "NOCASE", SQLITE_UTF8, nullptr, &Collate, nullptr);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
}

}  // namespace quorvel::ado::embedded
