#include "platform/CurrentPrompts.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "platform/TerminalPrompts.h"

namespace quorvel {
namespace {

/// Every thread that asks or waits reads the prompts, even while another thread opens the first window.
class Holder {
 public:
  [[nodiscard]] Prompts& Get() const noexcept { return *m_current.load(std::memory_order_acquire); }
  std::shared_ptr<Prompts> Exchange(std::shared_ptr<Prompts> prompts) {
    const std::scoped_lock lock(m_changing);
    m_current.store(prompts.get(), std::memory_order_release);
    return std::exchange(m_owner, std::move(prompts));
  }

 private:
  std::mutex m_changing;
  std::shared_ptr<Prompts> m_owner = std::make_shared<TerminalPrompts>();
  std::atomic<Prompts*> m_current = m_owner.get();
};

Holder& Current() {
  // Never destroyed: a host's own static objects may still save remarks when the process ends.
  static auto& current = *new Holder();
  return current;
}

}  // namespace

Prompts& CurrentPrompts() { return Current().Get(); }

std::shared_ptr<Prompts> ExchangePrompts(std::shared_ptr<Prompts> prompts) {
  if (prompts == nullptr) prompts = std::make_shared<TerminalPrompts>();
  return Current().Exchange(std::move(prompts));
}

}  // namespace quorvel
