#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "platform/Error.h"

namespace quorvel::test {

/// The Error that `operation` throws; a failed test and an error 0 when it throws none.
template <typename Operation>
Error Caught(Operation&& operation) {
  try {
    std::forward<Operation>(operation)();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "no error was thrown";
  return {0, "", ""};
}

}  // namespace quorvel::test
