// Most functions are a row of kFunctions: a name, the number of arguments and SQLite's SQL for it. The rest have a
// syntax that a row cannot describe.
#include "ado/embedded/FunctionTranslator.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>

#include "ado/embedded/Clauses.h"
#include "ado/embedded/Quoting.h"
#include "ado/engine/DriverError.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

using Kind = Expression::Kind;

/// A T-SQL function and its counterpart in SQLite: {0}, {1}, {2} are the arguments. A function of unknown kind has the
/// kind of its arguments.
struct KnownFunction {
  std::string_view name;
  std::size_t arguments;
  std::string_view pattern;
  Kind kind;
};

constexpr std::array<KnownFunction, 22> kFunctions = {{
    {"GETDATE", 0, "tsql_now()", Kind::Unknown},
    {"SYSDATETIME", 0, "tsql_now()", Kind::Unknown},
    {"SCOPE_IDENTITY", 0, "last_insert_rowid()", Kind::Number},
    {"ISNULL", 2, "ifnull({0}, {1})", Kind::Unknown},
    {"NULLIF", 2, "nullif({0}, {1} COLLATE NOCASE)", Kind::Unknown},
    {"RTRIM", 1, "rtrim({0})", Kind::Text},
    {"LTRIM", 1, "ltrim({0})", Kind::Text},
    {"LEN", 1, "length(rtrim({0}))", Kind::Number},
    {"UPPER", 1, "upper({0})", Kind::Text},
    {"LOWER", 1, "lower({0})", Kind::Text},
    {"ABS", 1, "abs({0})", Kind::Number},
    {"SUBSTRING", 3, "substr({0}, {1}, {2})", Kind::Text},
    {"LEFT", 2, "substr({0}, 1, {1})", Kind::Text},
    {"RIGHT", 2, "tsql_right({0}, {1})", Kind::Text},
    {"REPLACE", 3, "replace({0}, {1}, {2})", Kind::Text},
    {"CHARINDEX", 2, "instr({1}, {0})", Kind::Number},
    {"REPLICATE", 2, "replace(hex(zeroblob({1})), '00', {0})", Kind::Text},
    {"SPACE", 1, "replace(hex(zeroblob({0})), '00', ' ')", Kind::Text},
    {"ISDATE", 1, "tsql_isdate({0})", Kind::Number},
    {"OBJECT_DEFINITION", 1, "tsql_object_definition({0})", Kind::Text},
    {"CHAR", 1, "char({0})", Kind::Text},
    {"NCHAR", 1, "char({0})", Kind::Text},
}};

constexpr std::array<std::string_view, 6> kAggregates = {"COUNT", "MAX", "MIN", "SUM", "AVG", "ROW_NUMBER"};

bool Contains(const auto& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view known) { return EqualIgnoringCase(known, name); });
}

/// The kind of a function such as ISNULL that returns one of its arguments.
Kind KindOfAny(const std::vector<Expression>& arguments) {
  const bool hasText = std::any_of(arguments.begin(), arguments.end(),
                                   [](const Expression& argument) { return argument.kind == Kind::Text; });
  return hasText ? Kind::Text : Kind::Unknown;
}

Expression Cast(const std::string& value, const SqlType& type) {
  if (type.type == DataType::DBTimeStamp) return {fmt::format("tsql_datetime({})", value)};
  if (const auto range = FindIntegerRange(type)) {
    return {fmt::format("tsql_int({}, {}, {})", value, range->lowest, range->highest), Kind::Number};
  }
  if (!IsTextType(type.type)) {
    return {fmt::format("CAST({} AS {})", value, type.type == DataType::Double ? "REAL" : "INTEGER"), Kind::Number};
  }
  const std::string text = fmt::format("CAST({} AS TEXT)", value);
  return {type.size > 0 ? fmt::format("substr({}, 1, {})", text, type.size) : text, Kind::Text};
}

}  // namespace

Expression FunctionTranslator::ParseCall(const std::string& name) {
  if (EqualIgnoringCase(name, "CAST")) return ParseCast();
  if (EqualIgnoringCase(name, "CONVERT")) return ParseConvert();
  if (EqualIgnoringCase(name, "OBJECT_ID")) return ParseObjectId();
  if (EqualIgnoringCase(name, "DATEADD")) return ParseDateAdd();
  if (EqualIgnoringCase(name, "COALESCE")) return ParseCoalesce();
  if (Contains(kAggregates, name)) return ParseAggregate(name);
  return ParsePlainFunction(name);
}

/// CAST (x AS type)
Expression FunctionTranslator::ParseCast() {
  m_cursor.Expect("(");
  const Expression value = m_parts.ParseExpression();
  m_cursor.Expect("AS");
  const SqlType type = ParseType(m_cursor);
  m_cursor.Expect(")");
  return Cast(value.sql, type);
}

/// CONVERT (type, x)
Expression FunctionTranslator::ParseConvert() {
  m_cursor.Expect("(");
  const SqlType type = ParseType(m_cursor);
  m_cursor.Expect(",");
  const Expression value = m_parts.ParseExpression();
  if (m_cursor.Accept(",")) m_cursor.FailUnsupported("a style in CONVERT");
  m_cursor.Expect(")");
  return Cast(value.sql, type);
}

Expression FunctionTranslator::ParseObjectId() {
  const std::vector<Expression> arguments = ParseArguments();
  if (arguments.empty() || arguments.size() > 2) m_cursor.Fail();
  return {fmt::format("tsql_object_id({}, {})", arguments[0].sql, arguments.size() > 1 ? arguments[1].sql : "NULL"),
          Kind::Number};
}

/// DATEADD (unit, number, date), where the unit is a bare word.
Expression FunctionTranslator::ParseDateAdd() {
  m_cursor.Expect("(");
  const std::string unit = FoldCase(m_cursor.ExpectName());
  m_cursor.Expect(",");
  const std::string rest = ParseExpressionList(m_cursor, m_parts);
  m_cursor.Expect(")");
  return {fmt::format("tsql_dateadd({}, {})", QuoteText(unit), rest)};
}

Expression FunctionTranslator::ParseCoalesce() {
  const std::vector<Expression> arguments = ParseArguments();
  std::vector<std::string> values;
  values.reserve(arguments.size());
  for (const Expression& argument : arguments) values.push_back(argument.sql);
  return {fmt::format("coalesce({})", fmt::join(values, ", ")), KindOfAny(arguments)};
}

Expression FunctionTranslator::ParsePlainFunction(const std::string& name) {
  const int line = m_cursor.Peek().line;
  const std::vector<Expression> arguments = ParseArguments();
  const auto* known = std::find_if(kFunctions.begin(), kFunctions.end(), [&](const KnownFunction& function) {
    return EqualIgnoringCase(function.name, name);
  });
  if (known == kFunctions.end()) {
    throw DriverError("42000", 195, fmt::format("'{}' is not a function that the embedded engine knows.", name), line);
  }
  if (arguments.size() != known->arguments) {
    throw DriverError("42000", 174,
                      fmt::format("The {} function requires {} argument(s).", known->name, known->arguments), line);
  }
  const auto argument = [&](std::size_t i) { return i < arguments.size() ? arguments[i].sql : std::string(); };
  return {fmt::format(fmt::runtime(known->pattern), argument(0), argument(1), argument(2)),
          known->kind == Kind::Unknown ? KindOfAny(arguments) : known->kind};
}

Expression FunctionTranslator::ParseAggregate(const std::string& name) {
  m_cursor.Expect("(");
  Expression inside;
  if (m_cursor.Accept("*")) {
    inside.sql = "*";
  } else if (!m_cursor.Is(")")) {
    const bool isDistinct = m_cursor.Accept("DISTINCT");
    inside = m_parts.ParseExpression();
    if (isDistinct) inside.sql = "DISTINCT " + inside.sql;
  }
  m_cursor.Expect(")");
  const bool keepsKind = EqualIgnoringCase(name, "MAX") || EqualIgnoringCase(name, "MIN");
  return {fmt::format("{}({}){}", name, inside.sql, ParseOver()), keepsKind ? inside.kind : Kind::Number};
}

/// OVER ([PARTITION BY ..] ORDER BY ..), or nothing.
std::string FunctionTranslator::ParseOver() {
  if (!m_cursor.AcceptAll({"OVER", "("})) return {};
  std::string sql = " OVER (";
  if (m_cursor.AcceptAll({"PARTITION", "BY"})) sql += "PARTITION BY " + ParseExpressionList(m_cursor, m_parts) + " ";
  sql += ParseOrderBy(m_cursor, m_parts) + ")";
  m_cursor.Expect(")");
  return sql;
}

std::vector<Expression> FunctionTranslator::ParseArguments() {
  std::vector<Expression> arguments;
  m_cursor.Expect("(");
  if (m_cursor.Accept(")")) return arguments;
  do {
    arguments.push_back(m_parts.ParseExpression());
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return arguments;
}

}  // namespace quorvel::ado::embedded
