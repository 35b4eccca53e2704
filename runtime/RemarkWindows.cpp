#include "runtime/RemarkWindows.h"

#include <string>
#include <utility>

#include "platform/Error.h"

namespace quorvel {
namespace {

std::shared_ptr<RemarkWindows>& WindowsInForce() {
  // Never destroyed, as the prompts are not.
  static auto& windows = *new std::shared_ptr<RemarkWindows>();
  return windows;
}

}  // namespace

RemarkWindows& CurrentRemarkWindows(std::string_view source) {
  const auto& windows = WindowsInForce();
  if (!windows) {
    throw Error(ErrorNumber::Component, std::string(source),
                "No window can be opened: the window library is not loaded");
  }
  return *windows;
}

std::shared_ptr<RemarkWindows> ExchangeRemarkWindows(std::shared_ptr<RemarkWindows> windows) {
  return std::exchange(WindowsInForce(), std::move(windows));
}

}  // namespace quorvel
