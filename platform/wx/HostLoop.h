#pragma once

#include <memory>

namespace quorvel::ui {

/// Whether the host runs an event loop that a modeless window can live on. On Linux it must be one of GTK's; on Windows
/// every program that has windows runs one.
[[nodiscard]] bool HostRunsLoop();

/// While it lives, the component's modeless windows get their keys and idle events from the loop of the host, which
/// knows nothing of the toolkit. Several may live at once.
class LifeOnHostLoop {
 public:
  LifeOnHostLoop();
  ~LifeOnHostLoop();
  LifeOnHostLoop(const LifeOnHostLoop&) = delete;
  LifeOnHostLoop& operator=(const LifeOnHostLoop&) = delete;

 private:
  struct State;
  std::shared_ptr<State> m_state;
};

}  // namespace quorvel::ui
