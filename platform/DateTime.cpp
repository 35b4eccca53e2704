// Reads and writes dates without the C library, whose functions follow the process's locale. Grids and databases
// convert thousands of dates, so both directions work on the characters themselves.

#include "platform/DateTime.h"

#include <array>

#include "platform/OperatingSystem.h"

namespace quorvel {
namespace {

using std::chrono::days;
using std::chrono::milliseconds;

constexpr int kLastYear = 9999;

/// Writes `number` into the `width` characters before `end`, with leading zeros; returns where they begin.
char* PutDigits(char* end, int number, int width) {
  for (; width > 0; --width) {
    *--end = static_cast<char>('0' + number % 10);
    number /= 10;
  }
  return end;
}

/// Reads a text from its front; a Take moves forward only when it succeeds.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : m_rest(text) {}

  [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }

  bool Take(char wanted) {
    if (m_rest.empty() || m_rest.front() != wanted) return false;
    m_rest.remove_prefix(1);
    return true;
  }

  bool TakeDigit(int& digit) {
    if (m_rest.empty() || m_rest.front() < '0' || m_rest.front() > '9') return false;
    digit = m_rest.front() - '0';
    m_rest.remove_prefix(1);
    return true;
  }

  bool TakeNumber(int width, int& number) {
    number = 0;
    for (; width > 0; --width) {
      int digit = 0;
      if (!TakeDigit(digit)) return false;
      number = number * 10 + digit;
    }
    return true;
  }

 private:
  std::string_view m_rest;
};

std::optional<std::chrono::local_days> ScanDate(Scanner& scanner) {
  int year = 0;
  int month = 0;
  int day = 0;
  if (!scanner.TakeNumber(4, year)) return std::nullopt;
  const bool hyphens = scanner.Take('-');
  if (!scanner.TakeNumber(2, month) || (hyphens && !scanner.Take('-')) || !scanner.TakeNumber(2, day)) {
    return std::nullopt;
  }
  const auto date = std::chrono::year(year) / month / day;
  if (year == 0 || !date.ok()) return std::nullopt;
  return std::chrono::local_days(date);
}

/// The digits after the decimal point; the fourth digit rounds, later ones cannot change the result.
std::optional<milliseconds> ScanFraction(Scanner& scanner) {
  int digit = 0;
  if (!scanner.TakeDigit(digit)) return std::nullopt;
  int fraction = digit * 100;
  for (const int weight : {10, 1}) {
    if (!scanner.TakeDigit(digit)) return milliseconds(fraction);
    fraction += digit * weight;
  }
  if (scanner.TakeDigit(digit) && digit >= 5) ++fraction;
  while (scanner.TakeDigit(digit)) {
  }
  return milliseconds(fraction);
}

std::optional<milliseconds> ScanTime(Scanner& scanner) {
  int hour = 0;
  int minute = 0;
  int second = 0;
  if (!scanner.TakeNumber(2, hour) || !scanner.Take(':') || !scanner.TakeNumber(2, minute)) return std::nullopt;
  milliseconds fraction{0};
  if (scanner.Take(':')) {
    if (!scanner.TakeNumber(2, second)) return std::nullopt;
    if (scanner.Take('.')) {
      const auto scanned = ScanFraction(scanner);
      if (!scanned) return std::nullopt;
      fraction = *scanned;
    }
  }
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second) + fraction;
}

}  // namespace

DateTime Now() { return os::LocalNow(); }

std::string FormatDateTime(DateTime value, char separator) {
  const auto day = std::chrono::floor<days>(value);
  const std::chrono::year_month_day date(day);
  const auto time = static_cast<int>((value - day).count());
  const int year = static_cast<int>(date.year());

  std::array<char, 23> text{};
  char* position = text.data() + text.size();
  position = PutDigits(position, time % 1000, 3);
  *--position = '.';
  position = PutDigits(position, time / 1000 % 60, 2);
  *--position = ':';
  position = PutDigits(position, time / 60'000 % 60, 2);
  *--position = ':';
  position = PutDigits(position, time / 3'600'000, 2);
  *--position = separator;
  position = PutDigits(position, static_cast<int>(static_cast<unsigned>(date.day())), 2);
  *--position = '-';
  position = PutDigits(position, static_cast<int>(static_cast<unsigned>(date.month())), 2);
  *--position = '-';
  if (year < 1 || year > kLastYear) return std::to_string(year).append(position, text.data() + text.size());
  PutDigits(position, year, 4);
  return {text.data(), text.size()};
}

std::optional<DateTime> ParseDateTime(std::string_view text) {
  Scanner scanner(text);
  const auto date = ScanDate(scanner);
  if (!date) return std::nullopt;
  if (scanner.AtEnd()) return DateTime(*date);
  if (!scanner.Take(' ') && !scanner.Take('T')) return std::nullopt;
  const auto time = ScanTime(scanner);
  if (!time || !scanner.AtEnd()) return std::nullopt;
  // Rounding up the last millisecond of the last year would give a year that the format cannot hold.
  if (*time >= days(1) && *date == std::chrono::local_days(std::chrono::year(kLastYear) / 12 / 31)) return std::nullopt;
  return *date + *time;
}

}  // namespace quorvel
