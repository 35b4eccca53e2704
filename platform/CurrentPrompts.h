#pragma once

#include <memory>

#include "platform/Prompts.h"

namespace quorvel {

/// The prompts that the process uses: the terminal's, until others are installed. Never null. Safe on every thread.
[[nodiscard]] Prompts& CurrentPrompts();

/// Installs `prompts` and returns the previous ones, which another thread may still use. Null restores the terminal's.
std::shared_ptr<Prompts> ExchangePrompts(std::shared_ptr<Prompts> prompts);

}  // namespace quorvel
