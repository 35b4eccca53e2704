#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ado/embedded/QueryTranslator.h"
#include "ado/embedded/SqlType.h"
#include "ado/engine/DriverError.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

using Expression = QueryTranslator::Expression;
using Kind = QueryTranslator::Kind;

/// A T-SQL function and how SQLite says it: {0}, {1}, {2} are the arguments.
struct KnownFunction {
  std::string_view name;
  std::size_t arguments;
  std::string_view pattern;
  Kind kind;
};

constexpr std::array<KnownFunction, 20> kFunctions = {{
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
    {"RIGHT", 2, "substr({0}, max(length({0}) - {1} + 1, 1), {1})", Kind::Text},
    {"REPLACE", 3, "replace({0}, {1}, {2})", Kind::Text},
    {"CHARINDEX", 2, "instr({1}, {0})", Kind::Number},
    {"REPLICATE", 2, "replace(hex(zeroblob({1})), '00', {0})", Kind::Text},
    {"SPACE", 1, "replace(hex(zeroblob({0})), '00', ' ')", Kind::Text},
    {"CHAR", 1, "char({0})", Kind::Text},
    {"NCHAR", 1, "char({0})", Kind::Text},
}};

constexpr std::array<std::string_view, 6> kAggregates = {"COUNT", "MAX", "MIN", "SUM", "AVG", "ROW_NUMBER"};

bool Contains(const auto& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view known) { return EqualIgnoringCase(known, name); });
}

/// A text argument makes ISNULL and COALESCE a text.
Kind KindOf(Kind kind, const std::vector<Expression>& arguments) {
  const bool hasText = std::any_of(arguments.begin(), arguments.end(),
                                   [](const Expression& argument) { return argument.kind == Kind::Text; });
  return kind == Kind::Unknown && hasText ? Kind::Text : kind;
}

}  // namespace

Expression QueryTranslator::ParseFunction(const std::string& name) {
  if (EqualIgnoringCase(name, "CAST")) return ParseCast(false);
  if (EqualIgnoringCase(name, "CONVERT")) return ParseCast(true);
  if (EqualIgnoringCase(name, "OBJECT_ID")) return ParseObjectId();
  if (Contains(kAggregates, name)) return ParseAggregate(name);
  if (EqualIgnoringCase(name, "DATEADD")) {
    m_cursor.Expect("(");
    const std::string unit = FoldCase(m_cursor.ExpectName());
    m_cursor.Expect(",");
    const std::string rest = ParseExpressionList();
    m_cursor.Expect(")");
    return {fmt::format("tsql_dateadd({}, {})", QuoteText(unit), rest)};
  }
  const int line = m_cursor.Peek().line;
  const std::vector<Expression> arguments = ParseArguments();
  if (EqualIgnoringCase(name, "COALESCE")) {
    std::string list;
    for (const Expression& argument : arguments) list += (list.empty() ? "" : ", ") + argument.sql;
    return {fmt::format("coalesce({})", list), KindOf(Kind::Unknown, arguments)};
  }
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
          KindOf(known->kind, arguments)};
}

/// CAST (x AS type), or CONVERT (type, x [, style]).
Expression QueryTranslator::ParseCast(bool typeFirst) {
  m_cursor.Expect("(");
  SqlType type;
  if (typeFirst) {
    type = ParseType(m_cursor);
    m_cursor.Expect(",");
  }
  const Expression value = ParseExpression();
  if (!typeFirst) {
    m_cursor.Expect("AS");
    type = ParseType(m_cursor);
  } else if (m_cursor.Accept(",")) {
    m_cursor.FailUnsupported("a style in CONVERT");
  }
  m_cursor.Expect(")");
  if (type.type == DataType::DBTimeStamp) return {fmt::format("tsql_datetime({})", value.sql)};
  IntegerRange range{};
  if (FindIntegerRange(type, range)) {
    return {fmt::format("tsql_int({}, {}, {})", value.sql, range.lowest, range.highest), Kind::Number};
  }
  if (!IsTextType(type.type)) {
    return {fmt::format("CAST({} AS {})", value.sql, type.type == DataType::Double ? "REAL" : "INTEGER"), Kind::Number};
  }
  const std::string text = fmt::format("CAST({} AS TEXT)", value.sql);
  return {type.size > 0 ? fmt::format("substr({}, 1, {})", text, type.size) : text, Kind::Text};
}

Expression QueryTranslator::ParseObjectId() {
  const std::vector<Expression> arguments = ParseArguments();
  if (arguments.empty() || arguments.size() > 2) m_cursor.Fail();
  return {fmt::format("tsql_object_id({}, {})", arguments[0].sql, arguments.size() > 1 ? arguments[1].sql : "NULL"),
          Kind::Number};
}

Expression QueryTranslator::ParseAggregate(const std::string& name) {
  m_cursor.Expect("(");
  Expression inside;
  if (m_cursor.Accept("*")) {
    inside.sql = "*";
  } else if (!m_cursor.Is(")")) {
    const bool isDistinct = m_cursor.Accept("DISTINCT");
    inside = ParseExpression();
    if (isDistinct) inside.sql = "DISTINCT " + inside.sql;
  }
  m_cursor.Expect(")");
  const bool keepsKind = EqualIgnoringCase(name, "MAX") || EqualIgnoringCase(name, "MIN");
  return {fmt::format("{}({}){}", name, inside.sql, ParseOver()), keepsKind ? inside.kind : Kind::Number};
}

/// OVER ([PARTITION BY ..] ORDER BY ..), or nothing.
std::string QueryTranslator::ParseOver() {
  if (!m_cursor.AcceptAll({"OVER", "("})) return {};
  std::string sql = " OVER (";
  if (m_cursor.AcceptAll({"PARTITION", "BY"})) sql += "PARTITION BY " + ParseExpressionList() + " ";
  sql += ParseOrderBy() + ")";
  m_cursor.Expect(")");
  return sql;
}

}  // namespace quorvel::ado::embedded
