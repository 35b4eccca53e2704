#include "ado/embedded/TimeLimit.h"

namespace quorvel::ado::embedded {
namespace {

using Clock = std::chrono::steady_clock;

/// Steps of SQLite's machine from one look at the clock to the next. They take some microseconds, but a view of the
/// file may call a function that takes long in every tenth step. SQLite counts the steps of all runs of a statement, so
/// some COMMIT may be the one that is interrupted: it has stored nothing then.
constexpr int kStepsBetweenLooks = 1'000;

}  // namespace

void TimeLimit::Attach(sqlite3* database) noexcept {
  const auto stops = [](void* self) { return static_cast<const TimeLimit*>(self)->IsReached() ? 1 : 0; };
  sqlite3_progress_handler(database, kStepsBetweenLooks, stops, this);
}

bool TimeLimit::IsReached() const noexcept { return m_end && Clock::now() >= *m_end; }

TimeLimit::Command::Command(TimeLimit& limit) noexcept : m_limit(limit) {
  if (limit.m_limit.count() > 0) limit.m_end = Clock::now() + limit.m_limit;
}

}  // namespace quorvel::ado::embedded
