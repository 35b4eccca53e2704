#include "ado/odbc/Timestamp.h"

#include <chrono>

namespace quorvel::ado::odbc {

using namespace std::chrono;

DateTime FromTimestamp(const SQL_TIMESTAMP_STRUCT& timestamp) noexcept {
  const local_days day{year{timestamp.year} / month{timestamp.month} / std::chrono::day{timestamp.day}};
  return day + hours{timestamp.hour} + minutes{timestamp.minute} + seconds{timestamp.second} +
         round<milliseconds>(nanoseconds{timestamp.fraction});
}

SQL_TIMESTAMP_STRUCT ToTimestamp(DateTime value) noexcept {
  const auto midnight = floor<days>(value);
  const year_month_day date{midnight};
  const hh_mm_ss time{value - midnight};
  SQL_TIMESTAMP_STRUCT timestamp{};
  timestamp.year = static_cast<SQLSMALLINT>(static_cast<int>(date.year()));
  timestamp.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.month()));
  timestamp.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.day()));
  timestamp.hour = static_cast<SQLUSMALLINT>(time.hours().count());
  timestamp.minute = static_cast<SQLUSMALLINT>(time.minutes().count());
  timestamp.second = static_cast<SQLUSMALLINT>(time.seconds().count());
  timestamp.fraction = static_cast<SQLUINTEGER>(nanoseconds{time.subseconds()}.count());
  return timestamp;
}

}  // namespace quorvel::ado::odbc
