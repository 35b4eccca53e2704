#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "ado/odbc/CallSeam.h"

namespace quorvel::test {

/// Lets the ODBC call with that number fail, counted from 1 since the construction; 0 means none. With `andLater` the
/// calls after it fail as well, as when the server goes away.
class FailingCall : public ado::odbc::CallObserver {
 public:
  explicit FailingCall(int number, bool andLater = false)
      : m_left(number), m_andLater(andLater), m_before(ado::odbc::Observe(this)) {}
  ~FailingCall() override { ado::odbc::Observe(m_before); }
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  bool Allows(std::string_view function) override {
    if (function == "SQLAllocHandle") ++handles;
    if (function == "SQLFreeHandle") --handles;
    if (meanwhile) meanwhile();
    --m_left;
    if (m_left > 0 || (m_left < 0 && !m_andLater)) return true;
    failed = function;
    return false;
  }

  std::function<void()> meanwhile;  ///< code of the host, which runs before each call
  std::string failed;               ///< the function of that call, once it was made
  int handles = 0;                  ///< allocated and not yet freed

 private:
  int m_left;
  bool m_andLater;
  ado::odbc::CallObserver* m_before;
};

}  // namespace quorvel::test
