#include "platform/Prompts.h"

#include <utility>

#include "platform/TerminalPrompts.h"

namespace quorvel {
namespace {

std::shared_ptr<Prompts>& Current() {
  static std::shared_ptr<Prompts> current = std::make_shared<TerminalPrompts>();
  return current;
}

}  // namespace

Prompts& CurrentPrompts() { return *Current(); }

std::shared_ptr<Prompts> ExchangePrompts(std::shared_ptr<Prompts> prompts) {
  if (prompts == nullptr) prompts = std::make_shared<TerminalPrompts>();
  return std::exchange(Current(), std::move(prompts));
}

}  // namespace quorvel
