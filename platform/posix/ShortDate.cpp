#include "platform/OperatingSystem.h"

#include <array>
#include <clocale>
#include <ctime>

#include "platform/PerThread.h"
#include "platform/UniqueHandle.h"
#include "platform/Utf.h"

namespace quorvel::os {
namespace {

struct LocaleTraits {
  using Type = locale_t;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type locale) noexcept { ::freelocale(locale); }
};
using Locale = UniqueHandle<LocaleTraits>;

/// The locale used last: creating one takes as long as formatting dozens of dates, and grids show thousands.
struct LastLocale {
  std::string name;
  Locale locale;
};

locale_t LocaleNamed(const std::string& name) {
  auto& last = PerThread<LastLocale>();
  if (!last.locale || last.name != name) {
    last.locale.Reset(::newlocale(LC_TIME_MASK, name.c_str(), nullptr));
    last.name = name;
  }
  return last.locale.Get();
}

/// The name of the locale that the environment sets for dates; empty when it sets none.
std::string LocaleName() {
  for (const char* name : {"LC_ALL", "LC_TIME", "LANG"}) {
    auto value = Variable(name);
    if (value && !value->empty()) return *value;
  }
  return {};
}

/// The standard's own locale writes American dates, which no user chose.
bool IsRegional(const std::string& name) {
  return !name.empty() && name != "POSIX" && name != "C" && !name.starts_with("C.");
}

std::optional<std::string> Format(const char* format, const std::tm& parts) {
  const std::string name = LocaleName();
  if (!IsRegional(name)) return std::nullopt;
  locale_t locale = LocaleNamed(name);
  if (locale == nullptr) return std::nullopt;
  std::array<char, 128> buffer{};
  const std::string text(buffer.data(), ::strftime_l(buffer.data(), buffer.size(), format, &parts, locale));
  // A locale may have another encoding than UTF-8.
  return text.empty() || !utf::ToUtf16(text) ? std::nullopt : std::optional(text);
}

}  // namespace

std::optional<std::string> RegionalShortDate(std::chrono::year_month_day date) {
  std::tm parts{};
  parts.tm_year = static_cast<int>(date.year()) - 1900;
  parts.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
  parts.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
  parts.tm_wday = static_cast<int>(std::chrono::weekday(date).c_encoding());
  return Format("%x", parts);
}

std::optional<std::string> RegionalTimeOfDay(std::chrono::seconds time) {
  const std::chrono::hh_mm_ss clock(time);
  std::tm parts{};
  parts.tm_hour = static_cast<int>(clock.hours().count());
  parts.tm_min = static_cast<int>(clock.minutes().count());
  parts.tm_sec = static_cast<int>(clock.seconds().count());
  return Format("%X", parts);
}

}  // namespace quorvel::os
