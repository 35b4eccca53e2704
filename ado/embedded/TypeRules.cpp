// A check's name is all that SQLite reports of its violation, so the name carries what the error needs: the SQLSTATE,
// a blank and a text.
#include "ado/embedded/TypeRules.h"

#include <fmt/format.h>

#include <string_view>

#include "ado/embedded/Quoting.h"

namespace quorvel::ado::embedded {
namespace {

constexpr std::string_view kTextTooLong = "22001";
constexpr std::string_view kNumberOutOfRange = "22003";
constexpr std::string_view kNotADate = "22007";
constexpr std::size_t kSqlStateLength = 5;

std::string Check(std::string_view sqlState, const std::string& text, const std::string& condition) {
  return fmt::format(" CONSTRAINT {} CHECK ({})", QuoteName(fmt::format("{} {}", sqlState, text)), condition);
}

}  // namespace

std::string TypeRule(const std::string& column, const SqlType& type) {
  const std::string name = QuoteName(column);
  if (const auto range = FindIntegerRange(type)) {
    return Check(kNumberOutOfRange,
                 fmt::format("{} holds whole numbers from {} to {}", column, range->lowest, range->highest),
                 // SQLite would keep a fraction in a column of whole numbers.
                 fmt::format("typeof({0}) IN ('integer', 'null') AND {0} BETWEEN {1} AND {2}", name, range->lowest,
                             range->highest));
  }
  if (type.type == DataType::Double) {
    return Check(kNumberOutOfRange, column + " holds numbers", fmt::format("typeof({}) <> 'text'", name));
  }
  if (type.type == DataType::DBTimeStamp) {
    return Check(kNotADate, column + " holds a date and time", name + " LIKE '____-__-__ __:__:__.___'");
  }
  if (!IsTextType(type.type) || type.size == 0) return {};
  return Check(kTextTooLong, fmt::format("{} holds at most {} characters", column, type.size),
               fmt::format("length({}) <= {}", name, type.size));
}

std::optional<DriverError> TypeRuleViolation(const std::string& constraint) {
  const bool isRule =
      constraint.size() > kSqlStateLength + 1 && constraint.starts_with("22") && constraint[kSqlStateLength] == ' ';
  if (!isRule) return std::nullopt;
  const std::string sqlState = constraint.substr(0, kSqlStateLength);
  const std::string text = constraint.substr(kSqlStateLength + 1);
  if (sqlState == kTextTooLong) {
    return DriverError(sqlState, 8152, fmt::format("String or binary data would be truncated: {}.", text));
  }
  if (sqlState == kNumberOutOfRange) {
    return DriverError(sqlState, 220, fmt::format("Arithmetic overflow or not a number: {}.", text));
  }
  return DriverError(sqlState, 241, fmt::format("Conversion failed: {}.", text));
}

}  // namespace quorvel::ado::embedded
