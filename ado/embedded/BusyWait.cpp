#include "ado/embedded/BusyWait.h"

#include <algorithm>
#include <thread>

#include "ado/engine/DriverError.h"
#include "platform/CurrentPrompts.h"
#include "platform/RaisedFlag.h"

namespace quorvel::ado::embedded {
namespace {

using std::chrono::milliseconds;

/// Short at first, because most locks are; later so that many who wait do not keep the processor busy.
milliseconds Pause(int tries) { return milliseconds(1) * (1 << std::min(tries, 6)); }

}  // namespace

void BusyWait::Attach(sqlite3* database) noexcept { sqlite3_busy_handler(database, &BusyWait::Handle, this); }

int BusyWait::Handle(void* self, int tries) noexcept { return static_cast<BusyWait*>(self)->GoOn(tries) ? 1 : 0; }

void BusyWait::RefuseWhileWaiting() const {
  if (!m_isDrawing) return;
  throw DriverError("HY010", 0,
                    "The connection waits for another program that has locked the database file. Nothing else can be "
                    "read or written before the call that waits has ended.");
}

bool BusyWait::GoOn(int tries) {
  const auto now = std::chrono::steady_clock::now();
  if (tries == 0) m_begin = now;
  const auto waited = std::chrono::duration_cast<milliseconds>(now - m_begin);
  if ((m_limit.count() > 0 && waited >= m_limit) || m_timeLimit.IsReached()) return false;
  if (!m_file.IsInPlace()) return false;
  {
    const RaisedFlag drawing(m_isDrawing);
    CurrentPrompts().KeepDrawing();
  }
  const milliseconds pause = Pause(tries);
  std::this_thread::sleep_for(m_limit.count() > 0 ? std::min(pause, milliseconds(m_limit) - waited) : pause);
  return true;
}

}  // namespace quorvel::ado::embedded
