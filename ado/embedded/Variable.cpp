#include "ado/embedded/Variable.h"

#include <cstdint>
#include <string>

#include "ado/embedded/NumberRules.h"
#include "ado/embedded/SqlType.h"
#include "ado/engine/DriverError.h"
#include "platform/Error.h"

namespace quorvel::ado::embedded {

Variable ParseVariable(TokenCursor& cursor) {
  Variable variable;
  variable.info.name = cursor.ExpectVariable();
  cursor.Accept("AS");
  const SqlType type = ParseType(cursor);
  variable.info.type = type.type;
  variable.info.size = type.size;
  return variable;
}

namespace {

bool IsWhole(DataType type) {
  return type == DataType::SmallInt || type == DataType::Integer || type == DataType::BigInt;
}

Value AsNumber(Value value, DataType type) {
  const auto* text = std::get_if<std::string>(&value);
  if (text != nullptr && numberRules::IsZero(*text)) return std::int64_t{0};
  if (text != nullptr && IsWhole(type) && !numberRules::IsWhole(*text)) {
    throw DriverError("22018", 245, numberRules::NotWhole(*text));
  }
  const auto* fraction = std::get_if<double>(&value);
  return fraction != nullptr && IsWhole(type) ? Value{numberRules::Whole(*fraction)} : std::move(value);
}

}  // namespace

Value CoerceVariable(Value value, const ParameterInfo& info) {
  try {
    const bool isNumber = info.type != DataType::Empty && info.type != DataType::DBTimeStamp && !IsTextType(info.type);
    return CoerceToParameter(isNumber ? AsNumber(std::move(value), info.type) : std::move(value), info);
  } catch (const Error& error) {
    throw DriverError(error.Number() == ErrorNumber::Overflow ? "22003" : "22018", 245, error.Description());
  }
}

}  // namespace quorvel::ado::embedded
