#pragma once

#include <utility>

namespace quorvel {

/// Runs `action` at the end of the scope, also when an exception ends it. The action throws nothing.
template <typename Action>
class AtScopeEnd {
 public:
  explicit AtScopeEnd(Action action) : m_action(std::move(action)) {}
  ~AtScopeEnd() { m_action(); }
  AtScopeEnd(const AtScopeEnd&) = delete;
  AtScopeEnd& operator=(const AtScopeEnd&) = delete;

 private:
  Action m_action;
};

}  // namespace quorvel
