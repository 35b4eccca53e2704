#include "ado/engine/Parameter.h"

#include <fmt/format.h>

#include "ado/engine/AdoError.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::ado {
namespace {

std::string_view Accepted(DataType type) {
  switch (type) {
    case DataType::SmallInt:
      return "whole numbers from -32768 to 32767";
    case DataType::Integer:
      return "whole numbers from -2147483648 to 2147483647";
    case DataType::BigInt:
      return "whole numbers of 64 bits";
    case DataType::Double:
      return "numbers";
    case DataType::Boolean:
      return "True, False or a number";
    case DataType::DBTimeStamp:
      return "dates";
    default:
      return "texts";
  }
}

Value Convert(Value value, DataType type) {
  switch (type) {
    case DataType::SmallInt:
      return std::int64_t{ToInt16(value)};
    case DataType::Integer:
      return std::int64_t{ToInt32(value)};
    case DataType::BigInt:
      return ToInt64(value);
    case DataType::Double:
      return ToDouble(value);
    case DataType::Boolean:
      return ToBoolean(value);
    case DataType::DBTimeStamp:
      return ToDateTime(value);
    case DataType::Empty:
      return value;
    default:
      return ToText(std::move(value));
  }
}

void CheckLength(const Value& value, const ParameterInfo& parameter) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr || parameter.size <= 0) return;
  const std::size_t length = CountCharacters(*text);
  if (length <= static_cast<std::size_t>(parameter.size)) return;
  ThrowAdoError(ErrorNumber::AdoDataConversion,
                fmt::format("The text for parameter {} has {} characters; {} is the limit.", parameter.name, length,
                            parameter.size));
}

}  // namespace

Value CoerceToParameter(Value value, const ParameterInfo& parameter) {
  if (IsNull(value)) return value;
  Value converted;
  try {
    converted = Convert(std::move(value), parameter.type);
  } catch (const Error& error) {
    throw Error(
        error.Number(), error.Source(),
        fmt::format("{}: parameter {} takes {}.", error.Description(), parameter.name, Accepted(parameter.type)));
  }
  if (IsTextType(parameter.type)) CheckLength(converted, parameter);
  return converted;
}

}  // namespace quorvel::ado
