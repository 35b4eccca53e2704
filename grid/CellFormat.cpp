#include "grid/CellFormat.h"

#include <utility>

#include "platform/ShortDate.h"

namespace quorvel {
namespace {

bool IsFlag(const Value& value, CellFormat format) noexcept {
  return format == CellFormat::Flag && !IsText(value) && !std::holds_alternative<DateTime>(value);
}

bool IsChecked(const Value& flag) { return !IsNull(flag) && ToBoolean(flag); }

}  // namespace

ShownCell ShowCell(Value value, CellFormat format) {
  if (IsFlag(value, format)) return {.text = {}, .isChecked = IsChecked(value)};
  return {.text = FormatCell(std::move(value), format)};
}

std::string FormatCell(Value value, CellFormat format) {
  if (IsNull(value)) return {};
  const auto* date = std::get_if<DateTime>(&value);
  return date != nullptr && format == CellFormat::ShortDate ? FormatShortDate(*date) : ToText(std::move(value));
}

std::string CompleteCell(const Value& value, CellFormat format) {
  const auto* date = std::get_if<DateTime>(&value);
  return date != nullptr && format == CellFormat::ShortDate ? FormatDateWithTime(*date) : std::string();
}

std::string SpeakCell(Value value, CellFormat format, const std::string& caption) {
  if (!IsFlag(value, format)) return FormatCell(std::move(value), format);
  if (IsNull(value)) return caption + " not set";
  return caption + (IsChecked(value) ? " checked" : " not checked");
}

}  // namespace quorvel
