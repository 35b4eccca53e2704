#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "ado/engine/DataType.h"
#include "ado/engine/Names.h"
#include "platform/Value.h"

namespace quorvel::ado {

/// Parameter directions by ADO's numbers.
enum class ParameterDirection : int { Input = 1, Output = 2, InputOutput = 3, ReturnValue = 4 };

/// The name, type, direction and size of one parameter of a procedure.
struct ParameterInfo {
  std::string name;  ///< with its leading @, in the letter case of the source
  DataType type = DataType::Empty;
  ParameterDirection direction = ParameterDirection::Input;
  std::int32_t size = 0;  ///< most characters of a text parameter; 0 or less means no limit
  friend bool operator==(const ParameterInfo&, const ParameterInfo&) = default;
};

/// `value` as a parameter of that type takes it; a text is moved through. Error 6 when a number does not fit, 13 when
/// the value has no such reading, adErrDataConversion when a text is longer than `size`; each names the parameter.
[[nodiscard]] Value CoerceToParameter(Value value, const ParameterInfo& parameter);

/// One parameter of a call, declared by the caller or discovered from the database.
class Parameter {
 public:
  explicit Parameter(ParameterInfo info, std::optional<quorvel::Value> value = std::nullopt)
      : m_info(std::move(info)), m_value(std::move(value)) {}

  [[nodiscard]] const ParameterInfo& Info() const noexcept { return m_info; }
  /// Null when there is no value; after a call, an output parameter holds what the procedure returned.
  [[nodiscard]] quorvel::Value Value() const { return m_value.value_or(Null{}); }
  /// Throws as CoerceToParameter does, and then the value is unchanged.
  void SetValue(quorvel::Value value) { m_value = CoerceToParameter(std::move(value), m_info); }

  /// For engines: the value to send, or nothing when the procedure's default applies.
  [[nodiscard]] const std::optional<quorvel::Value>& Given() const noexcept { return m_value; }
  /// For engines: whether the procedure returns a value in it.
  [[nodiscard]] bool IsOutput() const noexcept { return m_info.direction != ParameterDirection::Input; }
  /// For engines: stores what the procedure returned, as it is.
  void SetOutput(quorvel::Value value) noexcept { m_value = std::move(value); }

 private:
  ParameterInfo m_info;
  std::optional<quorvel::Value> m_value;
};

}  // namespace quorvel::ado
