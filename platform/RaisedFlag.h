#pragma once

#include <utility>

namespace quorvel {

/// Raises a flag until the end of the scope and then restores its former value.
class RaisedFlag {
 public:
  explicit RaisedFlag(bool& flag) noexcept : m_flag(flag), m_before(std::exchange(flag, true)) {}
  ~RaisedFlag() { m_flag = m_before; }
  RaisedFlag(const RaisedFlag&) = delete;
  RaisedFlag& operator=(const RaisedFlag&) = delete;

 private:
  bool& m_flag;
  bool m_before;
};

}  // namespace quorvel
