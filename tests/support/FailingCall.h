#pragma once

#include <string>
#include <string_view>

#include "ado/odbc/CallSeam.h"

namespace quorvel::test {

/// Lets the ODBC call with that number fail, counted from 1 since the construction; 0 means none.
class FailingCall : public ado::odbc::CallObserver {
 public:
  explicit FailingCall(int number) : m_left(number), m_before(ado::odbc::Observe(this)) {}
  ~FailingCall() override { ado::odbc::Observe(m_before); }
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  bool Allows(std::string_view function) override {
    if (function == "SQLAllocHandle") ++handles;
    if (function == "SQLFreeHandle") --handles;
    if (--m_left != 0) return true;
    failed = function;
    return false;
  }

  std::string failed;  ///< the function of that call, once it was made
  int handles = 0;     ///< allocated and not yet freed

 private:
  int m_left;
  ado::odbc::CallObserver* m_before;
};

}  // namespace quorvel::test
