#include "runtime/RemarkWindows.h"

#include <mutex>
#include <string>
#include <utility>

#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "runtime/HostPrompts.h"
#include "runtime/WindowLibrary.h"

namespace quorvel {
namespace {

struct CurrentState {
  std::mutex starting;
  std::shared_ptr<RemarkWindows> windows;
  std::shared_ptr<Prompts> formerPrompts;  ///< other threads may still use them
};

CurrentState& Current() {
  // Never destroyed, like the prompts: a host's own static objects may still use it when the process ends.
  static auto& current = *new CurrentState();
  return current;
}

void Start(CurrentState& current, std::string_view source) {
  try {
    WindowLibrary library = StartWindowLibrary();
    current.formerPrompts = ExchangePrompts(std::make_shared<HostPrompts>(std::move(library.prompts)));
    current.windows = std::move(library.windows);
  } catch (const Error& error) {
    throw NoWindow(error.Number(), std::string(source), error.Description());
  }
}

}  // namespace

RemarkWindows& CurrentRemarkWindows(std::string_view source) {
  auto& current = Current();
  const std::scoped_lock lock(current.starting);
  if (!current.windows) Start(current, source);
  return *current.windows;
}

bool HasRemarkWindows() {
  auto& current = Current();
  const std::scoped_lock lock(current.starting);
  return current.windows != nullptr;
}

std::shared_ptr<RemarkWindows> ExchangeRemarkWindows(std::shared_ptr<RemarkWindows> windows) {
  auto& current = Current();
  const std::scoped_lock lock(current.starting);
  return std::exchange(current.windows, std::move(windows));
}

}  // namespace quorvel
