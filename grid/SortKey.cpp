#include "grid/SortKey.h"

#include <string>

#include "platform/Text.h"

namespace quorvel {
namespace {

template <typename Number>
int Order(Number left, Number right) noexcept {
  return static_cast<int>(left > right) - static_cast<int>(left < right);
}

/// Null, numbers of every kind, dates, texts.
int Rank(const Value& value) noexcept {
  if (IsNull(value)) return 0;
  if (std::holds_alternative<DateTime>(value)) return 2;
  return IsText(value) ? 3 : 1;
}

double Number(const Value& value) noexcept {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  const auto* number = std::get_if<double>(&value);
  return number != nullptr ? *number : 0;
}

}  // namespace

int CompareValues(const Value& left, const Value& right) noexcept {
  if (const int order = Order(Rank(left), Rank(right)); order != 0) return order;
  const auto* leftText = std::get_if<std::string>(&left);
  const auto* rightText = std::get_if<std::string>(&right);
  if (leftText != nullptr && rightText != nullptr) return CompareIgnoringCase(*leftText, *rightText);
  const auto* leftDate = std::get_if<DateTime>(&left);
  const auto* rightDate = std::get_if<DateTime>(&right);
  if (leftDate != nullptr && rightDate != nullptr) return Order(*leftDate, *rightDate);
  // Whole numbers beyond 2^53 would lose digits as floating-point numbers.
  const auto* leftWhole = std::get_if<std::int64_t>(&left);
  const auto* rightWhole = std::get_if<std::int64_t>(&right);
  if (leftWhole != nullptr && rightWhole != nullptr) return Order(*leftWhole, *rightWhole);
  return Order(Number(left), Number(right));
}

}  // namespace quorvel
