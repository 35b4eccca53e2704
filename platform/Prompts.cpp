#include "platform/Prompts.h"

#include <utility>

#include "platform/TerminalPrompts.h"

namespace quorvel {
namespace {

std::shared_ptr<Prompts>& Current() {
  // Never destroyed: a host's own static objects may still save remarks when the process ends.
  static auto& current = *new std::shared_ptr<Prompts>(std::make_shared<TerminalPrompts>());
  return current;
}

}  // namespace

Prompts& CurrentPrompts() { return *Current(); }

std::shared_ptr<Prompts> ExchangePrompts(std::shared_ptr<Prompts> prompts) {
  if (prompts == nullptr) prompts = std::make_shared<TerminalPrompts>();
  return std::exchange(Current(), std::move(prompts));
}

}  // namespace quorvel
