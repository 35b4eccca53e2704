#include "ado/Types.h"

#include <fmt/format.h>

#include "ado/AdoError.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::ado {
namespace {

std::string_view WhatItTakes(DataType type) {
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

Value Convert(const Value& value, DataType type) {
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
      return ToText(value);
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

std::string_view WithoutAt(std::string_view name) { return name.starts_with('@') ? name.substr(1) : name; }

}  // namespace

Value CoerceToParameter(const Value& value, const ParameterInfo& parameter) {
  if (IsNull(value)) return value;
  Value converted;
  try {
    converted = Convert(value, parameter.type);
  } catch (const Error& error) {
    throw Error(
        error.Number(), error.Source(),
        fmt::format("{}: parameter {} takes {}.", error.Description(), parameter.name, WhatItTakes(parameter.type)));
  }
  if (IsTextType(parameter.type)) CheckLength(converted, parameter);
  return converted;
}

bool SameName(std::string_view left, std::string_view right) noexcept {
  return EqualIgnoringCase(WithoutAt(left), WithoutAt(right));
}

}  // namespace quorvel::ado
