// The conversions of the classic language runtime, with std::from_chars and std::to_chars underneath: numbers look the
// same in every locale. Integers in texts are read exactly and not through a double.

#include "platform/Value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

template <typename... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

std::string TextOf(std::int64_t number) {
  std::array<char, 24> buffer{};
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return {buffer.data(), end};
}

std::string TextOf(double number) {
  // A double's fixed form has at most 309 digits before the point, or 325 zeros and 17 digits after it.
  std::array<char, 512> buffer{};
  if (number == 0) number = 0;  // -0 has no sign in a text
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed).ptr;
  return {buffer.data(), end};
}

std::string TextOf(DateTime date) {
  std::string text = FormatDateTime(date);
  if (text.ends_with(".000")) text.resize(text.size() - 4);
  return text;
}

/// Days since the zero date. As in automation, the fraction counts forward through the day before it too.
double AutomationDate(DateTime date) {
  const auto sinceZero = date - kZeroDate;
  const auto days = std::chrono::floor<std::chrono::days>(sinceZero);
  const double fraction = std::chrono::duration<double, std::chrono::days::period>(sinceZero - days).count();
  const auto whole = static_cast<double>(days.count());
  return whole < 0 ? whole - fraction : whole + fraction;
}

/// The text of a number without the blanks around it and without a plus sign. Error 13 when it begins otherwise.
std::string_view NumberText(std::string_view text) {
  text = TrimBlanks(text);
  const std::size_t sign = !text.empty() && (text.front() == '+' || text.front() == '-') ? 1 : 0;
  const char first = text.size() > sign ? text[sign] : '\0';
  if (first != '.' && (first < '0' || first > '9')) ThrowTypeMismatch();
  if (text.front() == '+') text.remove_prefix(1);
  return text;
}

/// Reads the whole of `text` as a Number; false when it is something else.
template <typename Number>
bool ReadWhole(std::string_view text, Number& number) {
  const char* end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, number);
  if (stop != end || problem == std::errc::invalid_argument) return false;
  if (problem == std::errc::result_out_of_range) ThrowOverflow();
  return true;
}

double DoubleOf(std::string_view text) {
  double number = 0;
  if (!ReadWhole(NumberText(text), number)) ThrowTypeMismatch();
  return number;
}

std::int64_t Rounded(double number) {
  constexpr double limit = 9223372036854775808.0;
  const double rounded = std::nearbyint(number);
  if (!(rounded >= -limit && rounded < limit)) ThrowOverflow();
  return static_cast<std::int64_t>(rounded);
}

std::int64_t IntegerOf(std::string_view text) {
  // Digits alone are read exactly; a double would lose the last of them.
  std::int64_t number = 0;
  if (ReadWhole(NumberText(text), number)) return number;
  return Rounded(DoubleOf(text));
}

template <typename Integer>
Integer Narrow(std::int64_t number) {
  if (!std::in_range<Integer>(number)) ThrowOverflow();
  return static_cast<Integer>(number);
}

}  // namespace

std::string ToText(const Value& value) {
  return std::visit(Overloaded{[](Null) -> std::string { ThrowInvalidUseOfNull(); },
                               [](bool truth) -> std::string { return truth ? "True" : "False"; },
                               [](const std::string& text) { return text; }, [](auto plain) { return TextOf(plain); }},
                    value);
}

std::string ToText(Value&& value) {
  if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
  return ToText(std::as_const(value));
}

std::int64_t ToInt64(const Value& value) {
  return std::visit(
      Overloaded{[](Null) -> std::int64_t { ThrowInvalidUseOfNull(); },
                 [](bool truth) -> std::int64_t { return truth ? -1 : 0; }, [](std::int64_t number) { return number; },
                 [](double number) { return Rounded(number); },
                 [](DateTime date) { return Rounded(AutomationDate(date)); },
                 [](const std::string& text) { return IntegerOf(text); }},
      value);
}

std::int32_t ToInt32(const Value& value) { return Narrow<std::int32_t>(ToInt64(value)); }

std::int16_t ToInt16(const Value& value) { return Narrow<std::int16_t>(ToInt64(value)); }

double ToDouble(const Value& value) {
  return std::visit(
      Overloaded{[](Null) -> double { ThrowInvalidUseOfNull(); }, [](bool truth) -> double { return truth ? -1 : 0; },
                 [](std::int64_t number) { return static_cast<double>(number); }, [](double number) { return number; },
                 [](DateTime date) { return AutomationDate(date); },
                 [](const std::string& text) { return DoubleOf(text); }},
      value);
}

bool ToBoolean(const Value& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (EqualIgnoringCase(*text, "True")) return true;
    if (EqualIgnoringCase(*text, "False")) return false;
  }
  return ToDouble(value) != 0;
}

DateTime ToDateTime(const Value& value) {
  if (IsNull(value)) ThrowInvalidUseOfNull();
  if (const auto* date = std::get_if<DateTime>(&value)) return *date;
  const auto* text = std::get_if<std::string>(&value);
  const auto parsed = text != nullptr ? ParseDateTime(*text) : std::nullopt;
  if (!parsed) ThrowTypeMismatch();
  return *parsed;
}

}  // namespace quorvel
