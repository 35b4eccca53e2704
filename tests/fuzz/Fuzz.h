#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Programs that try inputs on one parser each, under sanitizers. An exception that leaves Try, a rule that Require
/// finds broken, a sanitizer's finding and an input that takes too long end the program, which then keeps the input.
namespace quorvel::fuzz {

/// Tries one input. Each program has its own body. The same input always does the same.
void Try(std::string_view input);

inline void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "Broken rule: %s\n", rule);
  std::abort();
}

/// The text before the first `end`, which are both taken from the front; all of it where there is none.
inline std::string_view TakeUntil(char end, std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find(end));
  text.remove_prefix(std::min(text.size(), taken.size() + 1));
  return taken;
}

}  // namespace quorvel::fuzz
